#!/usr/bin/env python3
"""Builds the filtering dictionary dico/FILTRAGE: form, tab, frequency, one file per
(length class 1 to 15, initial class a to t), as the error census and the joined-word
search read it.

Usage: generer_filtrage.py DOSSIER_OLBRIN DOSSIER_FILTRAGE [TEXTE_DE_REFERENCE]

* The forms are those of the general dictionary (the 300 files of DOSSIER_OLBRIN),
  plus, for every form that begins with a vowel or "h", its elided form "l'" + form,
  so that the census can propose "l'amour" for a misread "tamour".
* The frequency of a form is 1 plus its number of occurrences in the reference text
  (by default the French Debian Reference, package debian-reference-fr, the prose the
  benchmark corpus is made of), read in lower case with "’" taken as "'". Without the
  text every form has frequency 1, and the census then ranks by its rules alone.
* Files are Windows-1252 with CR LF; within a file, forms in dictionary order. A file
  is rewritten only when its content changes.
"""

import gzip
import os
import re
import sys

REFERENCE = "/usr/share/debian-reference/debian-reference.fr.txt.gz"
VOYELLES = set("aeiouyhàâäéèêëîïôöùûüœæ")
RE_MOT = re.compile(r"[^\W\d_]+(?:['\-][^\W\d_]+)*")


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


def lire_formes(dossier):
    formes = []
    for l in range(1, 16):
        for c in range(1, 21):
            with open(os.path.join(dossier, "%d%s.txt" % (l, chr(96 + c))), "rb") as f:
                for ligne in f.read().decode("cp1252").splitlines():
                    if ligne:
                        formes.append(ligne.split(",", 1)[0])
    return formes


def compter(chemin):
    comptes = {}
    if not chemin or not os.path.exists(chemin):
        return comptes
    ouvrir = gzip.open if chemin.endswith(".gz") else open
    with ouvrir(chemin, "rt", encoding="utf-8", errors="replace") as f:
        texte = f.read().lower().replace("\u2019", "'")
    for m in RE_MOT.finditer(texte):
        jeton = m.group(0)
        morceaux = {jeton}
        # The parts of an elided or hyphenated token count too: "l'amour" is also "amour".
        for p in re.split(r"['\-]", jeton):
            if p:
                morceaux.add(p)
        if "'" in jeton:
            avant, _, apres = jeton.partition("'")
            morceaux.add(avant + "'")
            if apres:
                morceaux.add(apres)
        for p in morceaux:
            comptes[p] = comptes.get(p, 0) + 1
    return comptes


def ecrire(chemin, octets):
    try:
        with open(chemin, "rb") as f:
            if f.read() == octets:
                return
    except FileNotFoundError:
        pass
    with open(chemin, "wb") as f:
        f.write(octets)


def main():
    if len(sys.argv) not in (3, 4):
        sys.stderr.write("Usage : generer_filtrage.py DOSSIER_OLBRIN DOSSIER_FILTRAGE [TEXTE_DE_REFERENCE]\n")
        return 2
    olbrin, sortie = sys.argv[1], sys.argv[2]
    reference = sys.argv[3] if len(sys.argv) == 4 else REFERENCE
    formes = lire_formes(olbrin)
    vues = set()
    liste = []
    for f in formes:
        for forme in (f, "l'" + f if f[:1] in VOYELLES else None):
            if forme and forme not in vues:
                vues.add(forme)
                liste.append(forme)
    comptes = compter(reference)
    casiers = {}
    for forme in liste:
        try:
            forme.encode("cp1252")
        except UnicodeEncodeError:
            continue
        c = classe_initiale(forme)
        if c == 0:
            continue
        casiers.setdefault((min(len(forme), 15), c), []).append("%s\t%d" % (forme, 1 + comptes.get(forme, 0)))
    os.makedirs(sortie, exist_ok=True)
    total = 0
    for l in range(1, 16):
        for c in range(1, 21):
            lignes = casiers.get((l, c), [])
            total += len(lignes)
            ecrire(os.path.join(sortie, "%d%s.txt" % (l, chr(96 + c))),
                   b"".join(x.encode("cp1252") + b"\r\n" for x in lignes))
    print("generer_filtrage : %d formes, %d avec une fréquence du texte de référence, dans %s"
          % (total, sum(1 for f in liste if f in comptes), sortie))
    return 0


if __name__ == "__main__":
    sys.exit(main())
