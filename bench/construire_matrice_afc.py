#!/usr/bin/env python3
"""Writes a reproducible matrix text file for the correspondence-analysis benchmark.

Usage: construire_matrice_afc.py ROWS COLUMNS OUT.txt

Each row mixes two of 24 latent column profiles (so the table has a few strong factors) and adds
counts drawn from a fixed pseudo-random stream, so that every row and column sum is positive and
the tail of the spectrum is not flat. The same arguments always give the same bytes.
"""
import random
import sys


def main():
    lignes, colonnes, sortie = int(sys.argv[1]), int(sys.argv[2]), sys.argv[3]
    alea = random.Random(20261121)
    profils = []
    for _ in range(24):
        centre = alea.randrange(colonnes)
        largeur = alea.randrange(colonnes // 20 + 1, colonnes // 4 + 2)
        profils.append([max(0, 12 - (12 * abs(j - centre)) // largeur) for j in range(colonnes)])
    # A long stream of small counts, read from a random offset for each row.
    bruit = [min(int(alea.expovariate(0.9)), 9) for _ in range(colonnes * 7 + 1)]
    with open(sortie, "w", newline="") as f:
        f.write("".join("\tC%d" % (j + 1) for j in range(colonnes)) + "\r\n")
        for i in range(lignes):
            a, b = profils[alea.randrange(24)], profils[alea.randrange(24)]
            d = alea.randrange(colonnes * 6)
            cellules = [x + y + z for x, y, z in zip(a, b, bruit[d:d + colonnes])]
            cellules[i % colonnes] += 1
            f.write("L%d\t" % (i + 1) + "\t".join(map(str, cellules)) + "\r\n")


if __name__ == "__main__":
    main()
