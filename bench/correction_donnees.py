"""Donnees des mesures de la verification et de la correction (deterministes).

Usage :
  python3 bench/correction_donnees.py lexique CORPUS
      CORPUS/LEXIQUE.txt : lexique de niveau 1 (forme, tabulation, effectif, majuscules
      distinguees, effectifs decroissants) tire de OLBRIN_TT/LEXINDEX.
  python3 bench/correction_donnees.py inconnus MORV_RES CORPUS N
      CORPUS/INCONNUS.txt : N mots fautifs (une faute plantee chacun, tous inconnus du
      dictionnaire general) tires des formes de dico/olbrin.
  python3 bench/correction_donnees.py colles MORV_RES CORPUS N
      un corpus dont l'index tient N mots colles (deux formes du dictionnaire jointes) :
      CORPUS/REPERTOIRE.txt, CORPUS/OLBRIN_TT/colles.txt, CORPUS/OLBRIN_TT/LEXINDEX/colles.txt.
Fichiers en Windows-1252, fins de ligne CR LF.
"""
import collections
import os
import re
import sys


def formes(morv_res):
    r = []
    d = os.path.join(morv_res, "dico", "olbrin")
    for l in range(1, 16):
        for c in range(1, 21):
            with open(os.path.join(d, "%d%s.txt" % (l, chr(96 + c))), "rb") as f:
                for ligne in f.read().decode("cp1252").split("\r\n"):
                    if ligne:
                        r.append(ligne.split(",", 1)[0])
    return r


def ecrire(chemin, lignes):
    os.makedirs(os.path.dirname(chemin), exist_ok=True)
    with open(chemin, "wb") as f:
        f.write(b"".join(l.encode("cp1252") + b"\r\n" for l in lignes))


def lexique(corpus):
    compte = collections.Counter()
    dossier = os.path.join(corpus, "OLBRIN_TT", "LEXINDEX")
    for nom in sorted(os.listdir(dossier)):
        if not nom.endswith(".txt"):
            continue
        with open(os.path.join(dossier, nom), "rb") as f:
            for ligne in f.read().split(b"\r\n"):
                m = re.match(rb"<M f=(\S+) [^\t]*>\t(\d+)", ligne)
                if m:
                    compte[m.group(1).decode("latin-1")] += int(m.group(2))
    ecrire(os.path.join(corpus, "LEXIQUE.txt"),
           ["%s\t%d" % (f, n) for f, n in sorted(compte.items(), key=lambda x: (-x[1], x[0]))])


ACCENTS = {"é": "e", "è": "e", "ê": "e", "à": "a", "â": "a", "ô": "o", "î": "i", "ç": "c", "û": "u"}


def fautes(mot, k):
    """Une faute de frappe ou de lecture, selon k."""
    genre = k % 6
    if genre == 0 and "m" in mot:
        return mot.replace("m", "rn", 1)
    if genre == 1:
        for a, s in ACCENTS.items():
            if a in mot:
                return mot.replace(a, s, 1)
    if genre == 2:
        p = 1 + k % (len(mot) - 2)
        return mot[:p] + mot[p + 1:]
    if genre == 3:
        p = 1 + k % (len(mot) - 2)
        return mot[:p] + mot[p] + mot[p:]
    if genre == 4:
        p = 1 + k % (len(mot) - 2)
        return mot[:p] + mot[p + 1] + mot[p] + mot[p + 2:]
    return mot + "e" if not mot.endswith("e") else mot[:-1]


def inconnus(morv_res, corpus, n):
    tout = formes(morv_res)
    connus = set(tout)
    candidats = [f for f in tout if 6 <= len(f) <= 12 and f.isalpha() and f == f.lower()]
    pas = max(1, len(candidats) // (2 * n))
    r, attendus, vus, k = [], [], set(), 0
    while len(r) < n and k < len(candidats):
        mot = candidats[(k * pas) % len(candidats)]
        faux = fautes(mot, k)
        k += 1
        if faux in connus or faux in vus:
            continue
        vus.add(faux)
        r.append("%s\t%d" % (faux, 1 + k % 5))
        attendus.append("%s\t%s" % (faux, mot))
    ecrire(os.path.join(corpus, "INCONNUS.txt"), r)
    ecrire(os.path.join(corpus, "INCONNUS_ATTENDUS.txt"), attendus)


def colles(morv_res, corpus, n):
    tout = formes(morv_res)
    connus = set(tout)
    simples = [f for f in tout if 3 <= len(f) <= 8 and f.isalpha() and f == f.lower() and f[0] < "ÿ"]
    pas = max(1, len(simples) // (2 * n))
    r, vus, k = [], set(), 0
    while len(r) < n:
        a = simples[(k * pas) % len(simples)]
        b = simples[(k * pas * 7 + 13) % len(simples)]
        k += 1
        mot = a + b
        if mot in connus or mot in vus:
            continue
        vus.add(mot)
        r.append("<M f=%s >\t1\t!" % mot)
    ecrire(os.path.join(corpus, "REPERTOIRE.txt"), ["colles"])
    ecrire(os.path.join(corpus, "OLBRIN_TT", "colles.txt"), [])
    ecrire(os.path.join(corpus, "OLBRIN_TT", "LEXINDEX", "colles.txt"), ["<---------->"] + r)


def part(corpus):
    """La part des mots fautifs dont la suggestion du recensement est la forme d'origine."""
    def lire(nom):
        with open(os.path.join(corpus, nom), "rb") as f:
            return dict(l.split("\t", 1) for l in f.read().decode("cp1252").split("\r\n") if "\t" in l)
    attendus, suggestions = lire("INCONNUS_ATTENDUS.txt"), lire("CORR_SUGGESTIONS.txt")
    justes = sum(1 for w, m in attendus.items() if suggestions.get(w) == m)
    print("%d justes en premier sur %d (%.1f %%)" % (justes, len(attendus), 100.0 * justes / max(1, len(attendus))))


if __name__ == "__main__":
    if sys.argv[1] == "lexique":
        lexique(sys.argv[2])
    elif sys.argv[1] == "inconnus":
        inconnus(sys.argv[2], sys.argv[3], int(sys.argv[4]))
    elif sys.argv[1] == "part":
        part(sys.argv[2])
    elif sys.argv[1] == "colles":
        colles(sys.argv[2], sys.argv[3], int(sys.argv[4]))
    else:
        sys.exit(__doc__)
