#!/usr/bin/env python3
"""Mesure de l'étiquetage sur l'échantillon de référence.

Usage : mesurer.py DOSSIER_BUILD [--seuil P] [--brouillon FICHIER]
        mesurer.py --corpus DOSSIER_OLBRIN_TT

Le texte tests/qualite/texte.txt (prose française, UTF-8, un paragraphe par ligne)
devient un corpus d'un fichier dans un dossier temporaire, passe par la segmentation
(smn_seg), les composés (smn_cmp) et la passe automatique (smn_aup) de
DOSSIER_BUILD/telvoris avec l'arbre DOSSIER_BUILD/MORVENTA/morv_res, puis chaque
mot étiqueté est comparé à sa ligne de tests/qualite/reference.tsv :
    forme<TAB>lemme<TAB>catégorie
catégorie parmi S (nom), J (adjectif), V (verbe), A (adverbe), D (déterminant),
P (pronom), B (préposition), C (conjonction), N (nom propre), U (nombre),
M (locution figée), E (mot étranger ou coquille : compté à part).

Un mot tranché est juste quand sa catégorie correspond (SM/SF/SW -> S ; R -> S ou J ;
DXX… -> D ; BX, BI, B -> B ; CS -> C ; un mot-outil « _O », « _O* » ou « _O »
de coordination -> toute catégorie fermée D, P, B, C, A) et, pour S, J, V, son lemme
aussi. Un post-clitique (« -il », « -vous », « -t »... : les formes de
resources/morv_res/utilitaires/POSTCLIT_DESAMB.txt et « -t ») n'a pas de case du
dictionnaire, puisque sa première lettre est un tiret : la passe automatique le lit par
son code de personne, qui tranche le verbe qui le précède. Il est compté à part, ni
inconnu ni tranché. Sont imprimées les parts des mots tranchés, ambigus, inconnus et des
post-clitiques, et la
justesse des tranchés avec son intervalle de confiance à 95 % (Wilson). Avec
--seuil P, la sortie vaut 1 si la justesse est sous P %. --brouillon écrit une
référence à relire à partir des étiquettes produites. --corpus imprime seulement les
parts des mots tranchés, ambigus et inconnus (et les inconnus les plus fréquents) d'un
corpus déjà passé par la passe automatique.
"""
import math
import os
import re
import shutil
import subprocess
import sys
import tempfile

ICI = os.path.dirname(os.path.abspath(__file__))
JETON = re.compile(r"<(MC?) ([^>]*)>")
ATTRIBUT = re.compile(r"(\w+)=(\S*)")
FERMEES = set("DPBCA")
POSTCLIT = os.path.join(ICI, "..", "..", "resources", "morv_res", "utilitaires", "POSTCLIT_DESAMB.txt")


def lire_postclitiques():
    """The post-clitics that the context pass reads by their person code, "-t" included."""
    formes = {"-t"}
    for ligne in open(POSTCLIT, encoding="utf-8"):
        forme = ligne.split("\t")[0].strip()
        if forme:
            formes.add(forme)
    return formes


def categorie_systeme(cat):
    """Coarse categories that a tag category may stand for."""
    if cat in ("O", "O*"):
        return FERMEES
    if cat.startswith("S"):
        return {"S"}
    if cat == "R":
        return {"S", "J"}
    if cat.startswith("B"):
        return {"B"}
    if cat == "CS":
        return {"C"}
    return {cat[:1]}


def etiqueter(build, texte):
    """Runs the tagging chain on the text; returns [(form, l value)] of the word tokens."""
    telvoris = os.path.join(build, "telvoris")
    arbre = os.path.join(build, "MORVENTA", "morv_res")
    with tempfile.TemporaryDirectory(prefix="telvoris_qualite_") as d:
        os.makedirs(os.path.join(d, "ARCHIVE_BRUT"))
        lignes = ["<QORX_ATTR JOURNAL=REFERENCE DATE=2020-01-01 RUBRIQUE=Aide TITRE=Reference >"]
        lignes += [l.strip() for l in open(texte, encoding="utf-8") if l.strip()]
        with open(os.path.join(d, "ARCHIVE_BRUT", "REFERENCE_2020-01-01.txt"), "wb") as f:
            f.write("\r\n".join(lignes).encode("cp1252") + b"\r\n")
        with open(os.path.join(d, "REPERTOIRE.txt"), "wb") as f:
            f.write(b"REFERENCE_2020-01-01\r\n")
        for op in ("smn_seg", "smn_cmp", "smn_aup"):
            subprocess.run([telvoris, op, "--ressources", arbre, "-r", os.path.join(d, "REPERTOIRE.txt")],
                           check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        with open(os.path.join(d, "OLBRIN_TT", "REFERENCE_2020-01-01.txt"), "rb") as f:
            sortie = f.read().decode("cp1252")
    return mots_du_texte(sortie)


def lire_reference(chemin):
    r = []
    for numero, ligne in enumerate(open(chemin, encoding="utf-8"), 1):
        ligne = ligne.rstrip("\n")
        if not ligne or ligne.startswith("#"):
            continue
        champs = ligne.split("\t")
        if len(champs) != 3 or champs[2] not in set("SJVADPBCNUME"):
            raise SystemExit("mesurer : %s, ligne %d : « forme<TAB>lemme<TAB>catégorie » attendu" % (chemin, numero))
        r.append(tuple(champs))
    return r


def wilson(justes, n):
    if n == 0:
        return 0.0, 0.0
    p, z = justes / n, 1.96
    centre = (p + z * z / (2 * n)) / (1 + z * z / n)
    marge = z * math.sqrt(p * (1 - p) / n + z * z / (4 * n * n)) / (1 + z * z / n)
    return 100 * (centre - marge), 100 * (centre + marge)


def brouillon(mots, chemin):
    with open(chemin, "w", encoding="utf-8") as f:
        for genre, forme, l in mots:
            lemme, cat = forme.lower(), "?"
            if l and "/" not in l and "_" in l:
                lemme, _, c = l.rpartition("_")
                cat = sorted(categorie_systeme(c))[0] if c not in ("O", "O*") else "?"
            f.write("%s\t%s\t%s\n" % (forme, lemme, cat))


def mots_du_texte(sortie):
    mots = []
    for genre, corps in JETON.findall(sortie):
        a = dict(ATTRIBUT.findall(corps))
        if "f" in a and a["f"]:
            mots.append((genre, a["f"], a.get("l", "")))
    return mots


def parts_corpus(dossier):
    import collections
    compte = collections.Counter()
    inconnus = collections.Counter()
    ambigus = collections.Counter()
    postclitiques = lire_postclitiques()
    for nom in sorted(os.listdir(dossier)):
        chemin = os.path.join(dossier, nom)
        if not nom.endswith(".txt") or nom.startswith("#") or not os.path.isfile(chemin):
            continue
        with open(chemin, "rb") as f:
            for genre, forme, l in mots_du_texte(f.read().decode("cp1252")):
                if not l and forme.lower() in postclitiques:
                    compte["post-clitiques"] += 1
                elif not l:
                    compte["inconnus"] += 1
                    inconnus[forme] += 1
                elif "/" in l and "." in l.split("/")[0]:
                    compte["ambigus"] += 1
                    ambigus[forme.lower()] += 1
                else:
                    compte["tranchés"] += 1
    total = sum(compte.values())
    if not total:
        raise SystemExit("mesurer : aucun mot étiqueté dans %s" % dossier)
    print("%d mots ; tranchés %.1f %% ; ambigus %.1f %% ; inconnus %.1f %% ; post-clitiques %.1f %%"
          % (total, 100.0 * compte["tranchés"] / total, 100.0 * compte["ambigus"] / total,
             100.0 * compte["inconnus"] / total, 100.0 * compte["post-clitiques"] / total))
    print("ambigus les plus fréquents : " + ", ".join("%s %d" % x for x in ambigus.most_common(15)))
    print("inconnus les plus fréquents : " + ", ".join("%s %d" % x for x in inconnus.most_common(15)))


def main():
    args = sys.argv[1:]
    if len(args) == 2 and args[0] == "--corpus":
        parts_corpus(args[1])
        return 0
    if not args:
        sys.stderr.write(__doc__)
        return 2
    build, seuil, sortie_brouillon = args[0], None, None
    i = 1
    while i < len(args):
        if args[i] == "--seuil":
            seuil = float(args[i + 1].replace(",", "."))
        elif args[i] == "--brouillon":
            sortie_brouillon = args[i + 1]
        else:
            sys.stderr.write(__doc__)
            return 2
        i += 2
    mots = etiqueter(build, os.path.join(ICI, "texte.txt"))
    if sortie_brouillon:
        brouillon(mots, sortie_brouillon)
        return 0
    reference = lire_reference(os.path.join(ICI, "reference.tsv"))
    if len(reference) != len(mots):
        premier = next((k for k, (m, r) in enumerate(zip(mots, reference)) if m[1] != r[0]), min(len(mots), len(reference)))
        raise SystemExit("mesurer : %d mots étiquetés pour %d lignes de référence ; premier écart au mot %d"
                         % (len(mots), len(reference), premier + 1))
    tranches = ambigus = inconnus = justes = etrangers = postclit = 0
    postclitiques = lire_postclitiques()
    fautes = []
    for (genre, forme, l), (rforme, rlemme, rcat) in zip(mots, reference):
        if forme != rforme:
            raise SystemExit("mesurer : la référence donne « %s » où le texte étiqueté a « %s »" % (rforme, forme))
        if rcat == "E":
            etrangers += 1
            continue
        if not l and forme.lower() in postclitiques:
            postclit += 1
        elif not l:
            inconnus += 1
        elif "/" in l and "." in l.split("/")[0]:
            ambigus += 1
        else:
            tranches += 1
            lemme, _, cat = l.rpartition("_")
            bon = rcat in categorie_systeme(cat)
            if bon and rcat in "SJV" and genre == "M":
                bon = lemme.lower() == rlemme.lower()
            justes += bon
            if not bon:
                fautes.append("%s\t%s_%s\t(attendu %s_%s)" % (forme, lemme, cat, rlemme, rcat))
    total = tranches + ambigus + inconnus + postclit
    bas, haut = wilson(justes, tranches)
    justesse = 100.0 * justes / tranches if tranches else 0.0
    for faute in fautes:
        print("  faux : " + faute)
    print("%d mots de référence (%d étrangers ou coquilles à part)" % (total, etrangers))
    print("tranchés %.1f %% ; ambigus %.1f %% ; inconnus %.1f %% ; post-clitiques %.1f %%"
          % (100.0 * tranches / total, 100.0 * ambigus / total, 100.0 * inconnus / total,
             100.0 * postclit / total))
    print("justesse des tranchés %.1f %% (%d sur %d ; intervalle à 95 %% : %.1f - %.1f %%)"
          % (justesse, justes, tranches, bas, haut))
    if seuil is not None and justesse < seuil:
        print("mesurer : justesse %.1f %% sous le seuil de %.1f %%" % (justesse, seuil))
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
