"""Essai des listes de correction sur des fautes plantees (deterministe).

Usage : python3 bench/correction_essai.py TELVORIS MORV_RES DOSSIER

Ecrit dans DOSSIER trois listes de mots fautifs dont la bonne forme est connue, fait
tourner le recensement (smn_ctc), les variantes d'accents (smn_vac) et les graphies
anciennes (smn_F1L) avec l'arborescence MORV_RES, et donne pour chacun la part des
mots dont la premiere proposition est la bonne.
"""
import os
import subprocess
import sys

# Fautes de frappe et de lecture sur des mots de presse : une faute par mot.
FAUTES = """maison rnaison|moment rnoment|commune cornmune|chemin cliemin|habitants liabitants
préfet prefet|député depute|élection election|région region|conseil conseii|travaux travaus
budget budjet|printemps printemp|quartier quartiet|président présideut|gouvernement gouvemement
ministre rninistre|semaine semaiue|enfants enfarits|journal jourual|famille farnille|l'amour tamour
l'avenir pavenir|l'usine vusine|aujourd'hui aujourdhui|soixante soixaute|années anneés
politique politiqne|justice jnstice|ville vilie|manifestation rnanifestation|village viliage
nouvelle nouvele|dernière derniére|syndicat syndicta|entreprise entrepise|directeur direceur
national nationnal|municipal muncipal|population populaiton"""
# Accents perdus.
ACCENTS = """école ecole|élève eleve|région region|député depute|déjà deja|préfet prefet|était etait
général general|économie economie|société societe|sécurité securite|problème probleme
théâtre theatre|hôpital hopital|fenêtre fenetre|intérêt interet|première premiere|côté cote"""
# Graphies anciennes.
VIEUX = """était estoit|avait avoit|même mesme|point poinct|autre aultre|connaître cognoistre
notre nostre|savoir sçavoir|roi roy|lois loix|faisaient faisoient|enfants enfans|écrire escrire
île isle|avis advis|temps tems|sujet subject|maître maistre|paraître paroistre|connaît connoist"""


def paires(texte):
    r = []
    for morceau in texte.replace("\n", "|").split("|"):
        juste, faux = morceau.split()
        r.append((faux, juste))
    return r


def ecrire(chemin, lignes):
    with open(chemin, "wb") as f:
        f.write(b"".join(l.encode("cp1252") + b"\r\n" for l in lignes))


def lire(chemin, multiple=False):
    r = {}
    with open(chemin, "rb") as f:
        for l in f.read().decode("cp1252").split("\r\n"):
            champs = l.split("\t")
            if len(champs) >= 2:
                r.setdefault(champs[0], champs[1:] if multiple else champs[1])
    return r


def part(nom, attendu, obtenu, premier=lambda v: v):
    justes = [w for w, m in attendu if w in obtenu and premier(obtenu[w]) == m]
    faux = ["%s->%s" % (w, premier(obtenu[w]) if w in obtenu else "-") for w, m in attendu if w not in justes]
    print("%-28s %2d / %2d justes en premier  (autres : %s)" % (nom, len(justes), len(attendu), " ".join(faux)))


def main():
    exe, res, dossier = sys.argv[1:4]
    os.makedirs(dossier, exist_ok=True)
    ecrire(os.path.join(dossier, "REPERTOIRE.txt"), ["vide"])
    lancer = lambda *args: subprocess.run([exe, *args, "--ressources", res], stdin=subprocess.DEVNULL,
                                          stdout=subprocess.DEVNULL, check=True)
    fautes, accents, vieux = paires(FAUTES), paires(ACCENTS), paires(VIEUX)
    ecrire(os.path.join(dossier, "INCONNUS.txt"), ["%s\t3" % w for w, _ in fautes])
    lancer("smn_ctc", "-r", "1", "-r", os.path.join(dossier, "REPERTOIRE.txt"))
    part("smn_ctc (fautes)", fautes, lire(os.path.join(dossier, "CORR_SUGGESTIONS.txt")))
    ecrire(os.path.join(dossier, "accents.txt"), ["%s\t1" % w for w, _ in accents])
    lancer("smn_vac", "-r", "lou", "-r", os.path.join(dossier, "REPERTOIRE.txt"), "-r",
           os.path.join(dossier, "accents.txt"))
    voy = lire(os.path.join(dossier, "VOY_SIMPLES.txt"), True)
    voy.update(lire(os.path.join(dossier, "VOY_MULTIPLES.txt"), True))
    part("smn_vac (accents)", accents, voy, premier=lambda v: v[0])
    part("smn_vac (accents, parmi)", accents, {w: m for w, m in accents if m in voy.get(w, [])})
    ecrire(os.path.join(dossier, "vieux.txt"), ["%s\t1" % w for w, _ in vieux])
    lancer("smn_F1L", "-r", os.path.join(dossier, "vieux.txt"))
    part("smn_F1L (graphies)", vieux, lire(os.path.join(dossier, "vieux_SOLUTIONS.txt")))


if __name__ == "__main__":
    main()
