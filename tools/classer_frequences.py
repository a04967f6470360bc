#!/usr/bin/env python3
"""Ranks the word forms of French text by frequency, to choose the forms that
resources/dico_courant.txt must cover.

Usage: classer_frequences.py [N] [FICHIER...]
Reads the files (gzip when they end in .gz; by default the French Debian Reference,
package debian-reference-fr) and prints the N (default 1000) most frequent forms in
lower case, one "count<TAB>form" a line; the typographic apostrophe counts as "'",
and an elided form keeps its apostrophe ("l'", "qu'").
The Debian Reference leaves many passages untranslated (English prose, commands, file
listings): only lines where French function words outnumber English ones are counted, so
that the ranking is one of French prose.
"""
import collections
import gzip
import re
import sys

SOURCE = "/usr/share/debian-reference/debian-reference.fr.txt.gz"
MOT = re.compile(r"[a-zà-öø-ÿœ]+(?:-[a-zà-öø-ÿœ]+)*'?")
FRANCAIS = set("le la les de des du et est un une en pour dans que qui sur par pas au aux ce il "
               "sont avec l' d' qu' n' s' c'".split())
ANGLAIS = set("the and of is to in for with you this that are be it by from on or as".split())


def francaise(mots):
    """A line of French prose: more French than English function words."""
    fr = sum(m in FRANCAIS for m in mots)
    return fr > 0 and fr > sum(m in ANGLAIS for m in mots)


def classer(n, chemins=None):
    """The n most frequent forms as [(count, form)], most frequent first."""
    compte = collections.Counter()
    for chemin in chemins or [SOURCE]:
        ouvrir = gzip.open if chemin.endswith(".gz") else open
        with ouvrir(chemin, "rt", encoding="utf-8", errors="replace") as f:
            for ligne in f:
                mots = MOT.findall(ligne.replace("\u2019", "'").lower())
                if francaise(mots):
                    compte.update(mots)
    return [(c, forme) for forme, c in compte.most_common(n)]


def main():
    args = sys.argv[1:]
    n = int(args.pop(0)) if args and args[0].isdigit() else 1000
    for c, forme in classer(n, args):
        print("%d\t%s" % (c, forme))
    return 0


if __name__ == "__main__":
    sys.exit(main())
