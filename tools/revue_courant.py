#!/usr/bin/env python3
"""Writes the record of the review of the most frequent forms against the built dictionary.

Usage: revue_courant.py DOSSIER_BUILD [--verifier]
For each of the 1,000 forms of `python3 tools/classer_frequences.py 1000`, in rank order, one
line "rang<TAB>occurrences<TAB>forme<TAB>verdict<TAB>lectures": the verdict is "courante" when
resources/dico_courant.txt gives the form's line, "générée" when the line that the generator
draws from Grammalecte's lexicon was reviewed and kept, "absente" when the dictionary has no
line (commands, English words, file names of the untranslated passages). The readings are
those of DOSSIER_BUILD/MORVENTA/morv_res/dico/olbrin. The record goes to
resources/dico_courant_revue.txt; with --verifier nothing is written and the status is 1 when
the record is not the one that the current files give.
"""
import os
import sys

ICI = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, ICI)
import classer_frequences  # noqa: E402
import generer_olbrin  # noqa: E402

RANGS = 1000
REVUE = os.path.join(ICI, "..", "resources", "dico_courant_revue.txt")


def lire_dictionnaire(dossier):
    lignes = {}
    for nom in sorted(os.listdir(dossier)):
        with open(os.path.join(dossier, nom), "rb") as f:
            for ligne in f.read().split(b"\r\n"):
                forme, virgule, droite = ligne.partition(b",")
                if virgule:
                    lignes.setdefault(forme, droite)
    return lignes


def revue(build):
    dico = lire_dictionnaire(os.path.join(build, "MORVENTA", "morv_res", "dico", "olbrin"))
    courant = generer_olbrin.lire_courant(generer_olbrin.COURANT)
    sortie = ["# Revue des %d formes les plus fréquentes de la prose française de la Debian Reference" % RANGS,
              "# (python3 tools/classer_frequences.py %d), écrite par python3 tools/revue_courant.py build." % RANGS,
              "# rang, occurrences, forme, verdict (courante : ligne de resources/dico_courant.txt ;",
              "# générée : ligne du lexique relue et gardée ; absente : pas un mot du français), lectures."]
    for rang, (compte, forme) in enumerate(classer_frequences.classer(RANGS), 1):
        octets = forme.encode("cp1252", "replace")
        cle = generer_olbrin.plier(octets)
        lectures = dico.get(cle)
        verdict = "courante" if cle in courant else ("absente" if lectures is None else "générée")
        sortie.append("%d\t%d\t%s\t%s\t%s" % (rang, compte, forme, verdict, (lectures or b"").decode("cp1252")))
    return "\n".join(sortie) + "\n"


def main():
    args = sys.argv[1:]
    if not args or len(args) > 2 or (len(args) == 2 and args[1] != "--verifier"):
        sys.stderr.write(__doc__.split("\n\n")[1] + "\n")
        return 2
    texte = revue(args[0])
    if len(args) == 2:
        ancien = open(REVUE, encoding="utf-8").read() if os.path.exists(REVUE) else ""
        if ancien != texte:
            sys.stderr.write("revue_courant : %s n'est plus à jour (python3 tools/revue_courant.py %s)\n"
                             % (os.path.relpath(REVUE), args[0]))
            return 1
        return 0
    with open(REVUE, "w", encoding="utf-8") as f:
        f.write(texte)
    print("revue_courant : %d formes relevées dans %s" % (RANGS, os.path.relpath(REVUE)))
    return 0


if __name__ == "__main__":
    sys.exit(main())
