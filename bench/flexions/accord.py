#!/usr/bin/env python3
"""Agreement of the inflector with the shipped dictionary.

Usage: accord.py TELVORIS MORV_RES ECHANTILLON.txt [DOSSIER_TRAVAIL]

ECHANTILLON.txt (UTF-8) holds "lemma,CATEGORY<TAB>class" lines. The list is
inflected by `telvoris smn_flx`; each proposal "form,lemma,CODE" is then looked
up in dico/olbrin: it agrees when the line of the form has readings of the same
lemma and category (or R for a noun or adjective) whose persons and tenses,
gender and number, cover the proposal's. The dictionary comes from an
independent lexicon (Grammalecte), so agreement measures the tables.
Also reported: recall, the share of the dictionary's forms of each sampled
lemma that the inflector produced. Prints one line per class and the totals.
"""
import collections, os, subprocess, sys, tempfile

PERS = {"1": {"1"}, "2": {"2"}, "3": {"3"}, "4": {"4"}, "5": {"5"}, "6": {"6"},
        "7": {"1", "2"}, "8": {"1", "3"}, "9": {"2", "3"}}
TEMPS = {"j": "ac", "k": "ae", "l": "aei", "n": "ai", "o": "be", "q": "aci", "r": "eg", "t": "aeg", "z": "i"}
LETTRE = dict(zip("12345678", "abcdeghi"))


def decoder(forme, code):
    if not code:
        return forme
    i = 0
    while i < len(code) and code[i].isdigit():
        i += 1
    n = int(code[:i]) if i else 0
    return (forme[:len(forme) - n] if n else forme) + code[i:]


def atomes(cat, flex):
    """The elementary readings a flexion stands for."""
    r = set()
    if cat == "V":
        for f in flex.split("+"):
            if f[:1].isdigit() and len(f) >= 2:
                for p in PERS.get(f[0], {f[0]}):
                    for t in TEMPS.get(f[-1], f[-1]):
                        r.add(p + t)
            elif f.startswith("y") and len(f) == 3:
                for g in ("mf" if f[1] == "x" else f[1]):
                    for n in ("sp" if f[2] == "x" else f[2]):
                        r.add("y" + g + n)
            else:
                r.add(f)
    elif cat in ("J", "R"):
        if len(flex) == 2:
            for g in ("mf" if flex[0] == "x" else flex[0]):
                for n in ("sp" if flex[1] == "x" else flex[1]):
                    r.add(g + n)
        else:
            r.update({"ms", "mp", "fs", "fp"})
    elif cat.startswith("S"):
        r.update("sp" if flex == "x" else flex)
    else:
        r.add(flex)
    return r


def traduire(code):
    if code.startswith("S"):
        return code[:2], code[-1].lower() if len(code) > 2 else ""
    if code[0] in "VJR":
        f = code[1:]
        if code[0] == "V" and f[-1:] in LETTRE:
            f = f[:-1] + LETTRE[f[-1]]
        if code[0] != "V" and f.startswith("W"):
            f = "X" + f[1:]
        return code[0], f.lower()
    return code, ""


def main():
    telvoris, racine, echantillon = sys.argv[1:4]
    travail = sys.argv[4] if len(sys.argv) > 4 else tempfile.mkdtemp()
    classes = {}
    lignes = []
    for l in open(echantillon, encoding="utf-8"):
        l = l.rstrip("\n")
        if not l or l.startswith("#"):
            continue
        lemme, reste = l.split(",", 1)
        cat, classe = reste.split("\t")
        classes[lemme] = cat + classe
        lignes.append(l)
    liste = os.path.join(travail, "echantillon.txt")
    with open(liste, "wb") as f:
        f.write("".join(l + "\r\n" for l in lignes).encode("cp1252"))
    subprocess.run([telvoris, "smn_flx", "--ressources", racine, "-r", liste], check=True, stdout=subprocess.DEVNULL)
    dico = {}
    parlemme = collections.defaultdict(set)
    voulus = set(classes)
    base = os.path.join(racine, "dico", "olbrin")
    for nom in os.listdir(base):
        for ligne in open(os.path.join(base, nom), encoding="cp1252").read().splitlines():
            if "," not in ligne:
                continue
            forme, droite = ligne.split(",", 1)
            lectures = []
            for lec in droite.split("/"):
                code, _, reste = lec.partition(".")
                cat, _, flex = reste.partition(":")
                lemme = decoder(forme, code)
                lectures.append((lemme, cat, flex))
                if lemme in voulus and cat in ("V", "J", "R", "SM", "SF", "SW"):
                    parlemme[lemme].add(forme)
            dico[forme] = lectures
    accord = collections.Counter()
    total = collections.Counter()
    produits = collections.defaultdict(set)
    desaccords = collections.defaultdict(list)
    for ligne in open(os.path.join(travail, "echantillon_FLEX.txt"), encoding="cp1252").read().splitlines():
        forme, lemme, code = ligne.split(",")
        cle = classes.get(lemme, "?")
        cat, flex = traduire(code)
        voulu = atomes(cat, flex)
        trouve = set()
        for (l, c, f) in dico.get(forme, []):
            if l == lemme and (c == cat or (c == "R" and cat in ("J", "SM", "SF", "SW"))
                               or (cat == "R" and c in ("J", "SM", "SF", "SW"))):
                trouve |= atomes(c, f) if c == cat or c == "R" else atomes(cat, f if len(f) else "x")
        total[cle] += 1
        produits[lemme].add(forme)
        if voulu <= trouve:
            accord[cle] += 1
        else:
            desaccords[cle].append(ligne)
    print("classe\tpropositions\taccord\t%\trappel")
    ta = tt = 0
    rappel_num = rappel_den = 0
    for cle in sorted(total, key=lambda k: (k[0], int("".join(ch for ch in k if ch.isdigit()) or 0))):
        lemmes = [l for l, k in classes.items() if k == cle]
        num = sum(len(parlemme[l] & produits[l]) for l in lemmes)
        den = sum(len(parlemme[l]) for l in lemmes)
        rappel_num += num
        rappel_den += den
        print("%s\t%d\t%d\t%.1f\t%s" % (cle, total[cle], accord[cle], 100.0 * accord[cle] / total[cle],
                                          "%.1f" % (100.0 * num / den) if den else "-"))
        ta += accord[cle]
        tt += total[cle]
        if os.environ.get("DETAIL"):
            for d in desaccords[cle][:int(os.environ["DETAIL"])]:
                print("    ", d, [x for x in dico.get(d.split(",")[0], [])])
    print("TOTAL\t%d\t%d\t%.1f\t%.1f" % (tt, ta, 100.0 * ta / tt, 100.0 * rappel_num / max(1, rappel_den)))


if __name__ == "__main__":
    main()
