#!/usr/bin/env python3
"""Ranks the word forms of French text by frequency, to choose the forms that
resources/dico_courant.txt must cover.

Usage: classer_frequences.py [N] [FICHIER...]
Reads the files (gzip when they end in .gz; by default the French Debian Reference,
package debian-reference-fr) and prints the N (default 1000) most frequent forms in
lower case, one "count<TAB>form" a line; the typographic apostrophe counts as "'",
and an elided form keeps its apostrophe ("l'", "qu'").
"""
import collections
import gzip
import re
import sys

SOURCE = "/usr/share/debian-reference/debian-reference.fr.txt.gz"
MOT = re.compile(r"[a-zà-öø-ÿœ]+(?:-[a-zà-öø-ÿœ]+)*'?")


def main():
    args = sys.argv[1:]
    n = int(args.pop(0)) if args and args[0].isdigit() else 1000
    compte = collections.Counter()
    for chemin in args or [SOURCE]:
        ouvrir = gzip.open if chemin.endswith(".gz") else open
        with ouvrir(chemin, "rt", encoding="utf-8", errors="replace") as f:
            for ligne in f:
                compte.update(MOT.findall(ligne.replace("\u2019", "'").lower()))
    for forme, c in compte.most_common(n):
        print("%d\t%s" % (c, forme))
    return 0


if __name__ == "__main__":
    sys.exit(main())
