#!/usr/bin/env python3
"""Builds the 300 files of dico/olbrin from the French lexicon of Grammalecte
(Debian package python3-grammalecte, dictionary "fr-classic").

Usage: generer_olbrin.py DOSSIER_OLBRIN [FICHIER_CATEGORIES_DE_VERBES]

Writes DOSSIER_OLBRIN/<L><c>.txt for L = 1..15 and c = a..t, every file present
(empty when no form falls in it), Windows-1252, lines ended by CR LF, lines sorted
by their bytes. A summary goes to stdout. The run fails, writing nothing, when a
bucket would hold more than 10,000 lines or a line more than 10 readings: those
are the hard limits of the dictionary store, and no form is ever dropped to fit.

With a second argument it also writes the verb classes that the context rules
read (utilitaires/CATEGORIES_DE_VERBES_.txt): a header line, then per verb
"lemma_V<TAB>a<TAB>b<TAB>c" where "x" marks a = transitive (Grammalecte flag t),
b = intransitive or indirect transitive (i, n), c = pronominal (p, q, r);
at most 10,000 verbs, in the order of their lemmas.

The dictionary line
-------------------
    form,reading/reading/...      reading = lemme_code.CATEGORY[:flexion]

* form: the Grammalecte form folded to lower case (codes 65-90 and 192-223 take
  +32, 140 becomes 156); the typographic apostrophe U+2019 becomes "'" (39).
  A form with an apostrophe is also written with code 146, so that the
  segmenter glues "aujourd’hui" typed either way; a form with the ligature œ
  is also written with "oe" (lemma too), the spelling that segmentation leaves.
* file: <L><c>.txt, L the length capped at 15, c the letter of the initial
  class (a..t; u..z share k; à â æ -> a, ç -> c, è é ê -> e, î -> i, œ ô -> o).
  Forms of class 0 (digit or other initial) have no file and are left out,
  as are forms that Windows-1252 cannot write; both are counted in the summary.
* lemma: the Grammalecte lemma, folded like the form.
* lemme_code: empty when the lemma equals the form; otherwise cut n = 0, 1, 2...
  characters from the end of the form until what remains begins the lemma, and
  write n followed by the rest of the lemma ("chevaux" -> "2l", "porte" ->
  "0r" for porter, "est" -> "3être"). Proper nouns take the folded form as lemma.

Mapping of the Grammalecte tags
-------------------------------
  :N:g:n            noun: SM (g=m), SF (g=f), SW (g=e); flexion number s, p,
                    x (i = invariable)
  :A:g:n            adjective J, flexion gender (m, f, x for e) then number
  :N:A:g:n          noun or adjective R, same flexion
  noun + adjective  readings of one lemma on one form become one R reading
  :T:g:n            titles (madame, messieurs): nouns as above
  :V...:Y           infinitive, V:f
  :V...:P           present participle, V:x
  :V...:Q:A:g:n     past participle, V:y + gender + number; the pairs of one
                    lemma on one form are merged (m s + m p -> ymx) and joined
                    by "+" in one reading (V:yfs+ymx); an invariable participle
                    (:Q:e:i) is yms
  :V...:<tenses>:<persons>
                    finite forms, V:<person><tense>. Tenses Ip a, Iq b, Is c,
                    If d, Sp e, Sq g, K h, E i. Persons 1s..3p -> 1..6. One
                    form that serves persons 1 and 2 of the same tenses is 7,
                    1 and 3 is 8, 2 and 3 is 9; tenses of one person set merge
                    to j (a+c), k (a+e), l (a+e+i), n (a+i), o (b+e), q (a+c+i),
                    r (e+g), t (a+e+g), only where the merged code is exact.
                    The inverted forms (1ś, 1ŝ: "aimé-je") are left out.
  :W, :ÉW           adverb A
  :J, :X            interjection, word-sentence M
  :B                cardinal number word U
  :M1, :M2, :MP     first names, surnames, places: proper noun N
  :G (function words), one reading per class the tag names:
    :R, :ÉR         preposition BX; a fixed list of prepositions that only
                    govern a noun is B (avec, chez, dans, ...), "afin" is BI
    :Cs             subordinating conjunction CS
    :Cc, :C, :ÉC    coordination, function word O
    :D.. g n        determiner D + gender (M, F, X) + number (S, P, X), with
                    the flexion in lower case: le -> DMS:ms, les -> DXP:xp
    :O..            pronoun P
    :W, :X, :U      adverb A
  du, des, au, aux  the preposition, and the contracted article DÂ with the
                    lemma of the article it holds: du -> 2le.DÂ:ms, des ->
                    3les.DÂ:xp (besides the partitive or indefinite article)
  A lower-case form whose only readings are ".M" and ".N" keeps ".M" alone.
  Left out: :Br (Roman numerals, kept in utilitaires/romains.txt), :@
  (signs), :Z (prefixes and suffixes, see PREFIXES.txt), :H, :F (bare elided
  stems such as "jusqu" without apostrophe), :ÉV.

Readings of a line come in this order: nouns, R, J, verbs (f, x, finite, y),
A, M, U, prepositions, CS, D, P, O, N; identical readings are written once.

Capitalised forms in "E"
------------------------
The case normaliser gives a capital "E" an accent by a rule of spelling ("Etat" ->
"état"), so a few words in "e" are looked up, when they open a sentence, under a
spelling with "é" that no lexicon holds ("Elles" -> "élles", "Erreur" ->
"érreur"). Each such spelling that is not itself a form gets the line of the
form, its lemma codes rewritten to cut the whole form ("élles,5elles.P").

Curated layer
-------------
resources/dico_courant.txt (UTF-8, "#" comments) gives, for the most frequent
forms, the readings of current use: each line "form,reading/reading" replaces the
whole line that the lexicon gives for that form (or adds the form). A malformed
line stops the run with its file and line number.
"""

import collections
import os
import sys

LIMITE_CASIER = 10000
LIMITE_LECTURES = 10
LIMITE_VERBES = 10000

# Prepositions that only govern a noun phrase, and the one that only governs a verb.
PREPOSITIONS_NOMINALES = set("""avec chez dans parmi selon malgré envers vers sous sur contre
    depuis durant pendant dès hormis outre via devers""".split())
PREPOSITIONS_VERBALES = {"afin"}

# Function words whose closed-class readings are given here rather than derived from the tags.
FERMES = {
    "le": [".DMS:ms", ".P"],
    "la": [".DFS:fs", ".P"],
    "les": [".DXP:xp", ".P"],
    "l'": ["1e.DXS:xs", "1e.P"],
    "du": ["1e.BX", "2le.DÂ:ms", ".DMS:ms"],
    "des": ["1.BX", "3les.DÂ:xp", "3un.DXP:xp"],
    "au": ["2à.BX", "2le.DÂ:ms"],
    "aux": ["3à.BX", "3les.DÂ:xp"],
    "de": [".BX", ".DXX:xx"],
    "d'": ["1e.BX", "1e.DXX:xx"],
    "à": [".BX"],
    "que": [".CS", ".P"],
    "qu'": ["1e.CS", "1e.P"],
    "si": [".CS", ".A"],
    "s'": ["1e.P", "1i.CS"],
    "ne": [".A"],
    "n'": ["1e.A"],
    "en": [".BX", ".P"],
    "y": [".P", ".A"],
}

TEMPS = {"Ip": "a", "Iq": "b", "Is": "c", "If": "d", "Sp": "e", "Sq": "g", "K": "h", "E": "i"}
PERSONNES = {"1s": 1, "2s": 2, "3s": 3, "1p": 4, "2p": 5, "3p": 6}
# Merged tense letters and the tenses they stand for, largest first.
FUSIONS_TEMPS = [("t", "aeg"), ("q", "aci"), ("l", "aei"), ("j", "ac"), ("k", "ae"), ("n", "ai"),
                 ("o", "be"), ("r", "eg")]
RANGS = {"S": 0, "R": 1, "J": 2, "V": 3, "A": 4, "M": 5, "U": 6, "B": 7, "C": 8, "D": 9, "P": 10, "O": 11,
         "N": 12}


def plier(octets):
    """Lower case as the system folds it, on Windows-1252 bytes."""
    r = bytearray(octets)
    for i, c in enumerate(r):
        if 65 <= c <= 90 or 192 <= c <= 223:
            r[i] = c + 32
        elif c == 140:
            r[i] = 156
    return bytes(r)


def classe_initiale(octets):
    c = plier(octets[:1])[0] if octets else 0
    if 97 <= c <= 116:
        return c - 96
    if 117 <= c <= 122:
        return 11
    return {224: 1, 226: 1, 230: 1, 231: 3, 232: 5, 233: 5, 234: 5, 238: 9, 156: 15, 244: 15}.get(c, 0)


def en_cp1252(texte):
    try:
        return texte.replace("\u2019", "'").encode("cp1252")
    except UnicodeEncodeError:
        return None


def lemme_code(forme, lemme):
    """The lemma code of a form: empty for the form itself, else n and the rest of the lemma."""
    if forme == lemme:
        return b""
    reste = lemme_reste(forme, lemme)
    return str(len(forme) - (len(lemme) - len(reste))).encode() + reste


def lemme_reste(forme, lemme):
    """What the lemma code appends to the cut form."""
    n = 0
    while not lemme.startswith(forme[:len(forme) - n]):
        n += 1
    return lemme[len(forme) - n:]


def nettoyer(etiquettes):
    """The ":"-separated tags of a morphology, annotations (";...", "#...", "!") removed."""
    r = []
    for e in etiquettes.split("/")[0].split(":")[1:]:
        for s in (";", "#"):
            e = e.split(s)[0]
        r.append(e.rstrip("!"))
    return r


def genre_nombre(tags):
    """(gender, number) from the last tags: m/f/e, s/p/i."""
    g = next((t for t in tags if t in ("m", "f", "e")), "e")
    n = next((t for t in tags if t in ("s", "p", "i")), "i")
    return g, n


def deplier(g, n):
    gs = ("m", "f") if g == "e" else (g,)
    ns = ("s", "p") if n == "i" else (n,)
    return {(a, b) for a in gs for b in ns}


def resumer_genre_nombre(paires):
    """Exact cover of a set of (gender, number) pairs by codes gn with x for either."""
    paires = set(paires)
    if len(paires) == 4:
        return ["xx"]
    r = []
    for n in ("s", "p"):
        if ("m", n) in paires and ("f", n) in paires:
            r.append("x" + n)
            paires -= {("m", n), ("f", n)}
    for g in ("m", "f"):
        if (g, "s") in paires and (g, "p") in paires:
            r.append(g + "x")
            paires -= {(g, "s"), (g, "p")}
    r.extend(g + n for g, n in sorted(paires, key=lambda p: ("mf".index(p[0]), "sp".index(p[1]))))
    return r


def resumer_temps(temps):
    """Exact cover of a set of tense letters by single or merged letters."""
    reste = set(temps)
    r = []
    for lettre, ensemble in FUSIONS_TEMPS:
        if set(ensemble) <= reste:
            r.append(lettre)
            reste -= set(ensemble)
    r.extend(sorted(reste, key="abcdeghi".index))
    return r


def flexions_verbe(finies):
    """Readings of the finite forms of one lemma: {(person, tense)} -> ["8k", "2i", ...]."""
    par_personne = collections.defaultdict(set)
    for p, t in finies:
        par_personne[p].add(t)
    groupes = []
    for chiffre, (a, b) in ((7, (1, 2)), (8, (1, 3)), (9, (2, 3))):
        commun = par_personne[a] & par_personne[b]
        if commun:
            groupes.append((chiffre, commun))
            par_personne[a] -= commun
            par_personne[b] -= commun
    for p in range(1, 7):
        if par_personne[p]:
            groupes.append((p, par_personne[p]))
    groupes.sort(key=lambda g: ({1: 1, 2: 2, 3: 3, 7: 1.2, 8: 1.3, 9: 2.3}.get(g[0], g[0]), g[0]))
    return [str(p) + t for p, temps in groupes for t in resumer_temps(temps)]


class Lemme:
    def __init__(self):
        self.noms = set()       # (g, n)
        self.adjectifs = set()  # (g, n)
        self.nom_adj = set()    # (g, n)
        self.infinitif = False
        self.participe_present = False
        self.participes = set()  # (g, n)
        self.finies = set()      # (person, tense)
        self.autres = []         # (category, flexion)


def lectures_forme(forme, lemmes, propre):
    """The readings of one form: [(rank, text)] in line order."""
    r = []
    for lemme, L in lemmes.items():
        code = lemme_code(forme, lemme)
        # A lemma whose rest begins with a digit would be misread by the decoder.
        if code and lemme_reste(forme, lemme)[:1].isdigit():
            continue
        c = code.decode("cp1252")

        def ajouter(rang, cat, flex=""):
            r.append((rang, c + "." + cat + (":" + flex if flex else "")))

        adjectif = L.adjectifs or L.nom_adj
        nominal = L.noms or L.nom_adj
        if adjectif and nominal:
            for gn in resumer_genre_nombre(L.adjectifs | L.nom_adj | L.noms):
                ajouter(RANGS["R"], "R", gn)
        else:
            if L.noms:
                par_nombre = collections.defaultdict(set)
                for g, n in L.noms:
                    par_nombre[g].add(n)
                genres = collections.defaultdict(set)
                for g, ns in par_nombre.items():
                    for n in ns:
                        genres[n].add(g)
                restes = set(L.noms)
                for n in ("s", "p"):
                    if genres[n] == {"m", "f"}:
                        restes -= {("m", n), ("f", n)}
                w = [n for n in ("s", "p") if genres[n] == {"m", "f"}]
                if w:
                    ajouter(RANGS["S"], "SW", "x" if len(w) == 2 else w[0])
                for g in ("m", "f"):
                    ns = {n for gg, n in restes if gg == g}
                    if ns:
                        ajouter(RANGS["S"], "S" + g.upper(), "x" if len(ns) == 2 else ns.pop())
            for gn in resumer_genre_nombre(L.adjectifs):
                ajouter(RANGS["J"], "J", gn)
        if L.infinitif:
            ajouter(RANGS["V"], "V", "f")
        if L.participe_present:
            ajouter(RANGS["V"], "V", "x")
        for flex in flexions_verbe(L.finies):
            ajouter(RANGS["V"], "V", flex)
        if L.participes:
            codes = ["y" + gn for gn in resumer_genre_nombre(L.participes)]
            # Participle codes exist for ms, fs, mp, fp and mx only.
            developpes = []
            for cd in codes:
                if cd in ("yxx",):
                    developpes += ["ymx", "yfs", "yfp"]
                elif cd == "yxs":
                    developpes += ["yms", "yfs"]
                elif cd == "yxp":
                    developpes += ["ymp", "yfp"]
                elif cd == "yfx":
                    developpes += ["yfs", "yfp"]
                else:
                    developpes.append(cd)
            ajouter(RANGS["V"], "V", "+".join(developpes))
        for cat, flex in L.autres:
            ajouter(RANGS.get(cat[0], 11), cat, flex)
    if forme.decode("cp1252") in FERMES:
        r = [x for x in r if x[0] < RANGS["U"] or x[0] == RANGS["N"]]
        r += [(RANGS["B"], t) for t in FERMES[forme.decode("cp1252")]]
    if propre:
        r.append((RANGS["N"], ".N"))
    vus = set()
    sortie = []
    for rang, texte in sorted(r, key=lambda x: x[0]):
        if texte not in vus:
            vus.add(texte)
            sortie.append(texte)
    return sortie


COURANT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "resources", "dico_courant.txt")


def lire_courant(chemin):
    """The curated lines: {folded cp1252 form: [reading, ...]}. Raises ValueError naming the line."""
    r = {}
    with open(chemin, encoding="utf-8") as f:
        for numero, ligne in enumerate(f, 1):
            ligne = ligne.strip()
            if not ligne or ligne.startswith("#"):
                continue
            forme, virgule, droite = ligne.partition(",")
            lectures = droite.split("/")
            lieu = "%s, ligne %d" % (chemin, numero)
            if not virgule or not forme or forme != forme.strip() or " " in forme:
                raise ValueError("%s : « forme,lecture/lecture » attendu : %s" % (lieu, ligne))
            for lecture in lectures:
                code, point, cat = lecture.partition(".")
                if not point or cat[:1] not in RANGS:
                    raise ValueError("%s : lecture mal formée « %s »" % (lieu, lecture))
                chiffres = code[:len(code) - len(code.lstrip("0123456789"))]
                if chiffres and int(chiffres) > len(forme):
                    raise ValueError("%s : le code « %s » coupe plus que la forme" % (lieu, code))
            if len(lectures) > LIMITE_LECTURES:
                raise ValueError("%s : %d lectures (limite %d)" % (lieu, len(lectures), LIMITE_LECTURES))
            cle = en_cp1252(forme)
            if cle is None or en_cp1252(droite) is None:
                raise ValueError("%s : caractère hors Windows-1252" % lieu)
            cle = plier(cle)
            if cle in r:
                raise ValueError("%s : forme « %s » déjà donnée" % (lieu, forme))
            r[cle] = lectures
    return r


CONSONNES_E = set(b"bcdfgjklmnpqrstvz")
VOYELLES_E = set("aeiouyéèêîoôû".encode("cp1252"))


def majuscule_pliee(forme):
    """The folded spelling that a form in lower case gets when written with a capital: only an
    initial "e" may change, as the case normaliser accents a capital "E"."""
    if forme[:1] != b"e":
        return forme
    if forme.startswith(b"etre"):
        return "ê".encode("cp1252") + forme[1:]
    if forme == b"elle" or len(forme) < 2:
        return forme
    c2, c3 = forme[1], forme[2] if len(forme) > 2 else None
    if c2 in CONSONNES_E:
        accent = (len(forme) > 2 and c3 in VOYELLES_E) or (c2 == ord("c") and c3 == ord("h")) or c3 in (ord("r"), ord("l"))
    else:
        accent = c2 == ord("o") or (c2 == ord("a") and forme != b"eau")
    return "é".encode("cp1252") + forme[1:] if accent else forme


def lectures_majuscule(forme, lectures):
    """The readings of a form moved under a key of the same length: each lemma code cuts it all."""
    r = []
    for lecture in lectures:
        code, _, reste = lecture.partition(".")
        chiffres = code[:len(code) - len(code.lstrip("0123456789"))]
        f = forme.decode("cp1252")
        lemme = f[:len(f) - int(chiffres)] + code[len(chiffres):] if chiffres else (code or f)
        if lemme[:1].isdigit():
            return None
        r.append(str(len(f)) + lemme + "." + reste)
    return r


def fermes(forme_txt, lemme, tags, L):
    """Readings of a function word (:G) from its tags."""
    g, n = genre_nombre(tags)
    flex = {"m": "m", "f": "f", "e": "x"}[g] + {"s": "s", "p": "p", "i": "x"}[n]
    for t in tags[1:]:
        if t in ("R", "ÉR"):
            if forme_txt in PREPOSITIONS_NOMINALES:
                L.autres.append(("B", ""))
            elif forme_txt in PREPOSITIONS_VERBALES:
                L.autres.append(("BI", ""))
            else:
                L.autres.append(("BX", ""))
        elif t in ("Cs", "ÉCs"):
            L.autres.append(("CS", ""))
        elif t in ("Cc", "C", "ÉC"):
            L.autres.append(("O", ""))
        elif t.startswith("D") and t != "De":
            L.autres.append(("D" + flex.upper(), flex))
        elif t.startswith("O") and t not in ("Ov", "Ow", "O1", "O2", "O3"):
            L.autres.append(("P", ""))
        elif t in ("W", "X", "U", "ÉW"):
            L.autres.append(("A", ""))
    if forme_txt in PREPOSITIONS_VERBALES and not L.autres:
        L.autres.append(("BI", ""))


def main():
    if len(sys.argv) not in (2, 3):
        sys.stderr.write(__doc__.split("\n\n")[1] + "\n")
        return 2
    sortie = sys.argv[1]
    try:
        from grammalecte.graphspell import ibdawg
    except ImportError:
        sys.stderr.write("generer_olbrin : le paquet python3-grammalecte est absent (apt-get install python3-grammalecte)\n")
        return 1
    lexique = ibdawg.IBDAWG("fr-classic.json")
    try:
        courant = lire_courant(COURANT)
    except (OSError, ValueError) as e:
        sys.stderr.write("generer_olbrin : %s\n" % e)
        return 1

    formes = collections.defaultdict(lambda: collections.defaultdict(Lemme))
    propres = set()
    verbes = {}
    ignores = collections.Counter()
    entrees = 0
    def entrees_lexique():
        # The segmenter writes the ligature as "oe": forms with it are given in that spelling too.
        for flexion, lemme_txt, morph in lexique.select():
            yield flexion, lemme_txt, morph, True
            if "œ" in flexion or "Œ" in flexion:
                yield (flexion.replace("œ", "oe").replace("Œ", "Oe"), lemme_txt.replace("œ", "oe").replace("Œ", "Oe"),
                       morph, False)

    for flexion, lemme_txt, morph, original in entrees_lexique():
        entrees += original
        tags = nettoyer(morph)
        if not tags:
            continue
        f = en_cp1252(flexion)
        lem = en_cp1252(lemme_txt)
        if f is None or lem is None:
            ignores["hors Windows-1252"] += 1
            continue
        if b"," in f or b" " in f or b"/" in f or not f:
            ignores["forme avec virgule, blanc ou barre"] += 1
            continue
        forme = plier(f)
        if classe_initiale(forme) == 0:
            ignores["initiale sans fichier (classe 0)"] += 1
            continue
        tete = tags[0]
        if tete in ("M1", "M2", "MP", "ÉM2"):
            propres.add(forme)
            continue
        # Lemmas are folded like forms: "A" (the letter) is the lemma "a".
        L = formes[forme][plier(lem)]
        if tete.startswith("V"):
            if len(tete) >= 7:
                drapeaux = tete[2:]
                verbes.setdefault(plier(lem), (drapeaux[2:3] == "t", drapeaux[1:2] == "i" or drapeaux[3:4] == "n",
                                               drapeaux[4:5] in ("p", "q", "r")))
            modes = [t for t in tags[1:] if t in TEMPS or t in ("Y", "P", "Q")]
            if "Y" in modes:
                L.infinitif = True
            elif "P" in modes:
                L.participe_present = True
            elif "Q" in modes:
                if "A" in tags or tags[-2:] != ["e", "i"]:
                    L.participes |= deplier(*genre_nombre(tags))
                else:
                    L.participes.add(("m", "s"))
            else:
                personnes = [PERSONNES[t] for t in tags if t in PERSONNES]
                if not personnes:
                    ignores["formes inversées (aimé-je)"] += 1
                for t in modes:
                    for p in personnes:
                        L.finies.add((p, TEMPS[t]))
        elif tete in ("N", "ÉN", "T"):
            if "A" in tags[1:]:
                L.nom_adj |= deplier(*genre_nombre(tags))
            else:
                L.noms |= deplier(*genre_nombre(tags))
        elif tete in ("A", "ÉA"):
            L.adjectifs |= deplier(*genre_nombre(tags))
        elif tete in ("W", "ÉW"):
            L.autres.append(("A", ""))
        elif tete in ("J", "X", "ÉJ"):
            L.autres.append(("M", ""))
        elif tete == "B":
            L.autres.append(("U", ""))
        elif tete == "G":
            fermes(forme.decode("cp1252"), lem, tags, L)
        else:
            ignores["étiquette " + tete] += 1

    casiers = collections.defaultdict(list)
    lectures_max = 0
    trop = []
    toutes = set(formes) | propres | set(courant)
    remplacees = 0
    lignes_par_forme = {}
    for forme in toutes:
        lemmes = formes.get(forme, {})
        if forme in courant:
            lectures = courant[forme]
            remplacees += 1
        else:
            lectures = lectures_forme(forme, lemmes, forme in propres)
        if not lectures:
            ignores["forme sans lecture retenue : formes inversées, préfixes"] += 1
            continue
        # Dictionary application reads a lower-case word with two readings, one of them ".N",
        # through the other reading's flexion: one without a flexion (".M") would leave a broken
        # tag in the text, so such a proper-noun reading is left out.
        if len(lectures) == 2 and lectures[1] == ".N" and ":" not in lectures[0] and ".M" in lectures[0]:
            lectures = lectures[:1]
            ignores["lecture .N omise à côté d'une lecture .M sans flexion"] += 1
        if len(lectures) > LIMITE_LECTURES:
            trop.append((forme, len(lectures)))
        lectures_max = max(lectures_max, len(lectures))
        ligne = forme + b"," + "/".join(lectures).encode("cp1252")
        lignes_par_forme[forme] = ligne
        variantes = [(forme, ligne)]
        if b"'" in forme:
            variantes.append((forme.replace(b"'", b"\x92"), ligne.replace(b"'", b"\x92", forme.count(b"'"))))
        for f, l in variantes:
            casiers[(min(len(f), 15), classe_initiale(f))].append(l)

    majuscules = 0
    for forme, ligne in list(lignes_par_forme.items()):
        cle = majuscule_pliee(forme)
        if cle == forme or cle in toutes:
            continue
        lectures = lectures_majuscule(forme, ligne.split(b",", 1)[1].decode("cp1252").split("/"))
        if lectures is None:
            continue
        casiers[(min(len(cle), 15), classe_initiale(cle))].append(cle + b"," + "/".join(lectures).encode("cp1252"))
        majuscules += 1

    depasses = [(k, len(v)) for k, v in casiers.items() if len(v) > LIMITE_CASIER]
    if depasses or trop:
        for (l, c), n in sorted(depasses):
            sys.stderr.write("generer_olbrin : %d lignes pour le fichier %d%s.txt (limite %d)\n"
                             % (n, l, chr(96 + c), LIMITE_CASIER))
        for f, n in trop[:20]:
            sys.stderr.write("generer_olbrin : %d lectures pour %s (limite %d)\n"
                             % (n, f.decode("cp1252"), LIMITE_LECTURES))
        return 1

    os.makedirs(sortie, exist_ok=True)
    lignes = 0
    for l in range(1, 16):
        for c in range(1, 21):
            contenu = sorted(casiers.get((l, c), []))
            lignes += len(contenu)
            with open(os.path.join(sortie, "%d%s.txt" % (l, chr(96 + c))), "wb") as f:
                f.write(b"".join(x + b"\r\n" for x in contenu))
    if len(sys.argv) == 3:
        if len(verbes) > LIMITE_VERBES:
            sys.stderr.write("generer_olbrin : %d verbes (limite %d)\n" % (len(verbes), LIMITE_VERBES))
            return 1
        lignes_verbes = [b"verbe\ttransitif\tintransitif\tpronominal"]
        for lemme in sorted(verbes):
            marques = [b"x" if m else b"" for m in verbes[lemme]]
            if any(marques):
                lignes_verbes.append(lemme + b"_V\t" + b"\t".join(marques))
        os.makedirs(os.path.dirname(os.path.abspath(sys.argv[2])), exist_ok=True)
        with open(sys.argv[2], "wb") as f:
            f.write(b"".join(x + b"\r\n" for x in lignes_verbes))
        print("  %d verbes classés dans %s" % (len(lignes_verbes) - 1, sys.argv[2]))
    plus_grand = max(casiers.items(), key=lambda kv: len(kv[1]))
    print("generer_olbrin : %d entrées lues, %d formes, %d lignes dans 300 fichiers"
          % (entrees, len(toutes), lignes))
    print("  fichier le plus long : %d%s.txt, %d lignes (limite %d) ; au plus %d lectures par ligne (limite %d)"
          % (plus_grand[0][0], chr(96 + plus_grand[0][1]), len(plus_grand[1]), LIMITE_CASIER, lectures_max,
             LIMITE_LECTURES))
    print("  %d graphies à « é » initial d'une forme écrite avec la capitale « E »" % majuscules)
    print("  %d formes aux lectures d'usage courant (%s)" % (remplacees, os.path.basename(COURANT)))
    for raison, n in sorted(ignores.items()):
        print("  laissées de côté : %d (%s)" % (n, raison))
    return 0


if __name__ == "__main__":
    sys.exit(main())
