#!/usr/bin/env python3
"""Agreement of axisolve's result files with R's `ca` on the same matrix.

Usage: afc_comparer.py DOSSIER_AXISOLVE DOSSIER_R

Prints the largest relative difference of the eigenvalues axisolve wrote, and of the principal
coordinates of rows and columns, factor by factor up to the sign (which is each program's own
choice), relative to the factor's largest coordinate.
"""
import sys


def lire_axisolve(chemin):
    with open(chemin, newline="") as f:
        lignes = f.read().split("\r\n")[1:]
    return [[float(x) for x in l.split("\t")[1:]] for l in lignes if l]


def lire_r(chemin):
    with open(chemin) as f:
        return [[float(x) for x in l.split("\t")] for l in f.read().split("\n") if l]


def ecart_coordonnees(a, b):
    k = len(a[0])
    pire = 0.0
    for f in range(k):
        colonne_a = [ligne[f] for ligne in a]
        colonne_b = [ligne[f] for ligne in b]
        signe = 1.0 if sum(x * y for x, y in zip(colonne_a, colonne_b)) >= 0 else -1.0
        echelle = max(abs(y) for y in colonne_b) or 1.0
        pire = max(pire, max(abs(x - signe * y) for x, y in zip(colonne_a, colonne_b)) / echelle)
    return pire


def main():
    ax, r = sys.argv[1], sys.argv[2]
    valeurs_ax = [ligne[0] for ligne in lire_axisolve(ax + "/eigen.txt")]
    valeurs_r = [ligne[0] for ligne in lire_r(r + "/eigen.txt")]
    ecart_valeurs = max(abs(x - y) / y for x, y in zip(valeurs_ax, valeurs_r))
    lignes = ecart_coordonnees(lire_axisolve(ax + "/corli.txt"), lire_r(r + "/corli.txt"))
    colonnes = ecart_coordonnees(lire_axisolve(ax + "/corco.txt"), lire_r(r + "/corco.txt"))
    print("accord avec R ca (%d facteurs) : valeurs propres %.2e, coordonnées des lignes %.2e, "
          "des colonnes %.2e (écart relatif maximal)" % (len(valeurs_ax), ecart_valeurs, lignes, colonnes))


if __name__ == "__main__":
    main()
