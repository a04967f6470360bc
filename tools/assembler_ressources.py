#!/usr/bin/env python3
"""Assembles the authored part of the resource tree MORVENTA/morv_res.

Usage: assembler_ressources.py DOSSIER_RESOURCES DOSSIER_MORV_RES

* Every file of DOSSIER_RESOURCES/morv_res/ is authored in UTF-8 with LF line
  ends; it is written to the same place under DOSSIER_MORV_RES in Windows-1252
  with CR LF line ends, as the system reads it.
* DOSSIER_RESOURCES/sources/ holds lists that are spread over bucket files:
    composes_namb.txt, composes_amb.txt   "word word,lemma.CATEGORY:flexion"
        -> dico/comp/namb/<W><c>.txt and dico/comp/amb/<W><c>.txt, W the number
           of words (2 to 8), c the letter of the first word's initial class
    etrangers.txt                         one foreign form a line
        -> utilitaires/ETRANGERS/<L>_<NN>.txt, by the word's own class
  Lines beginning with "#" are comments there, and blank lines are skipped.
* The stores that start empty are created with all their files: rescor/rescor,
  incor/incor, dico/olbrin_accents, dico/FILTRAGE (300 files each), and the
  folders dico/olbrin_fus, dico/olbrin_2, dico/comp/svg/{namb,amb}.
A file is rewritten only when its content changes. dico/olbrin is not made
here: tools/generer_olbrin.py generates it.
"""

import os
import sys


def classe_initiale(mot):
    c = mot[:1]
    if not c:
        return 0
    o = ord(c.lower()) if c != "Œ" else ord("œ")
    if 97 <= o <= 116:
        return o - 96
    if 117 <= o <= 122:
        return 11
    return {"à": 1, "â": 1, "æ": 1, "ç": 3, "è": 5, "é": 5, "ê": 5, "î": 9, "œ": 15, "ô": 15}.get(chr(o), 0)


def ecrire(chemin, octets):
    try:
        with open(chemin, "rb") as f:
            if f.read() == octets:
                return
    except FileNotFoundError:
        pass
    os.makedirs(os.path.dirname(chemin), exist_ok=True)
    with open(chemin, "wb") as f:
        f.write(octets)


def en_cp1252(lignes, origine):
    try:
        return b"".join(l.encode("cp1252") + b"\r\n" for l in lignes)
    except UnicodeEncodeError as e:
        raise SystemExit("assembler_ressources : caractère hors Windows-1252 dans %s : %s" % (origine, e))


def lire_source(chemin):
    with open(chemin, encoding="utf-8") as f:
        return [l.rstrip("\r\n") for l in f if l.strip() and not l.startswith("#")]


def main():
    if len(sys.argv) != 3:
        sys.stderr.write("Usage : assembler_ressources.py DOSSIER_RESOURCES DOSSIER_MORV_RES\n")
        return 2
    src, dest = sys.argv[1], sys.argv[2]
    base = os.path.join(src, "morv_res")
    fichiers = 0
    for dossier, _, noms in os.walk(base):
        for nom in noms:
            chemin = os.path.join(dossier, nom)
            with open(chemin, encoding="utf-8") as f:
                texte = f.read()
            lignes = texte.split("\n")
            if lignes and lignes[-1] == "":
                lignes.pop()
            ecrire(os.path.join(dest, os.path.relpath(chemin, base)), en_cp1252([l.rstrip("\r") for l in lignes], chemin))
            fichiers += 1

    # Compounds by number of words and first word.
    for genre in ("namb", "amb"):
        casiers = {}
        source = os.path.join(src, "sources", "composes_%s.txt" % genre)
        for ligne in lire_source(source):
            cle = ligne.split(",", 1)[0]
            mots = cle.split(" ")
            c = classe_initiale(mots[0])
            if not 2 <= len(mots) <= 8 or c == 0 or "," not in ligne:
                raise SystemExit("assembler_ressources : composé mal formé dans %s : %s" % (source, ligne))
            casiers.setdefault((len(mots), c), []).append(ligne)
        for w in range(2, 9):
            for c in range(1, 21):
                ecrire(os.path.join(dest, "dico", "comp", genre, "%d%s.txt" % (w, chr(96 + c))),
                       en_cp1252(casiers.get((w, c), []), source))
        os.makedirs(os.path.join(dest, "dico", "comp", "svg", genre), exist_ok=True)

    # Foreign forms by their own bucket.
    casiers = {}
    source = os.path.join(src, "sources", "etrangers.txt")
    for mot in lire_source(source):
        c = classe_initiale(mot)
        if c == 0:
            raise SystemExit("assembler_ressources : mot étranger sans classe dans %s : %s" % (source, mot))
        casiers.setdefault((min(len(mot), 15), c), []).append(mot)
    for l in range(1, 16):
        for c in range(1, 21):
            ecrire(os.path.join(dest, "utilitaires", "ETRANGERS", "%d_%02d.txt" % (l, c)),
                   en_cp1252(casiers.get((l, c), []), source))

    # Stores that start empty, with every file of their series.
    for store in ("rescor/rescor", "incor/incor", "dico/olbrin_accents", "dico/FILTRAGE"):
        for l in range(1, 16):
            for c in range(1, 21):
                chemin = os.path.join(dest, store, "%d%s.txt" % (l, chr(96 + c)))
                if not os.path.exists(chemin):
                    ecrire(chemin, b"")
    for dossier in ("dico/olbrin_fus", "dico/olbrin_2"):
        os.makedirs(os.path.join(dest, dossier), exist_ok=True)
    print("assembler_ressources : %d listes écrites dans %s" % (fichiers, dest))
    return 0


if __name__ == "__main__":
    sys.exit(main())
