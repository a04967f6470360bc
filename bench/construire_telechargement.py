"""Construit un telechargement de presse synthetique pour mesurer l'import "Europresse".

Le format est celui que l'import lit : sous <sortie>/ARCHIVE/<n>/<k>.txt, des fichiers
UTF-8 (avec marque d'ordre d'octets), fins de ligne CR LF ; chaque fichier commence par
une ligne d'en-tete, puis des articles separes par une ligne qui commence par "*/" et
porte le pied de page (termine par "conventions."), suivi d'une ligne de reference.
Un article : ligne du journal ("Nom du journal, no. 1234"), ligne de date
("lundi, 3 janvier 2005"), rubrique, titre, auteur, paragraphes.

Le texte est tire d'un petit vocabulaire ecrit ici, par un generateur pseudo-aleatoire
a graine fixe : la sortie est identique d'un lancement a l'autre.

Usage : python3 bench/construire_telechargement.py [--articles N] [--par-fichier M] sortie
Cree aussi <sortie>/ARTICLES, <sortie>/ARCHIVE_BRUT (vides) et <sortie>/REPERTOIRE.txt.
"""
import argparse
import datetime
import os
import random
import shutil

JOURNAUX = ["Le Courrier du Littoral", "L’Écho des Plateaux", "La Vigie du Nord",
            "Le Réveil de la Vallée", "Les Nouvelles de l’Estuaire", "Le Journal des Coteaux"]
RUBRIQUES = ["Économie", "Société", "Culture", "Sports", "Politique", "Région", "Agriculture",
             "Éducation", "Santé", "Environnement"]
MOIS = ["janvier", "février", "mars", "avril", "mai", "juin", "juillet", "août", "septembre",
        "octobre", "novembre", "décembre"]
JOURS = ["lundi", "mardi", "mercredi", "jeudi", "vendredi", "samedi", "dimanche"]
PRENOMS = ["Anne", "Bernard", "Chloé", "Damien", "Élise", "François", "Gaëlle", "Hugo", "Inès",
           "Jérôme", "Léa", "Marc", "Noémie", "Olivier", "Pauline", "Rémi", "Sophie", "Théo"]
NOMS = ["Mercier", "Lefèvre", "Garnier", "Rousseau", "Faure", "Chevalier", "Gauthier", "Perrin",
        "Morel", "Fournier", "Lambert", "Bonnet", "Dupré", "Marchand", "Caron", "Brunet"]
MOTS = """le la les un une des du de au aux et ou mais donc car ni que qui dont où ce cette ces
son sa ses leur leurs notre nos votre il elle ils elles on nous vous se sur sous dans par pour
avec sans entre vers chez depuis pendant avant après contre selon malgré conseil municipal
maire ville commune région département habitants association projet budget travaux chantier
école collège lycée élèves enseignants parents hôpital médecins patients service public
entreprise salariés emploi chômage usine production marché prix euros millions hausse baisse
année mois semaine jour soir matin printemps été automne hiver pluie neige soleil vent
rivière forêt montagne plateau littoral port pêcheurs bateaux récolte vignes éleveurs
festival concert spectacle théâtre musée exposition livre auteur artiste public salle
match équipe joueurs entraîneur victoire défaite saison championnat supporters stade
a été sera était sont ont fait dit annonce explique précise souligne rappelle estime
décidé voté présenté ouvert fermé lancé prévu attendu engagé réalisé confirmé reporté
nouveau nouvelle grand grande petit petite premier première dernier dernière important
difficile possible nécessaire local locale national nationale européen européenne
très plus moins aussi encore déjà toujours jamais bientôt ensuite enfin cependant
œuvre cœur sœur bœuf naïf noël façon garçon reçu déçu crème fenêtre île côte hôtel""".split()
PIED = ("*/ Document réservé à l’usage de l’abonné. Toute reproduction ou diffusion est "
        "interdite hors du cadre des lois et conventions.")


def phrase(alea):
    n = alea.randint(8, 24)
    mots = [alea.choice(MOTS) for _ in range(n)]
    if alea.random() < 0.2:
        mots.insert(alea.randint(1, n - 1), str(alea.randint(2, 2000)))
    if alea.random() < 0.15:
        i = alea.randint(0, n - 3)
        mots[i] = "« " + mots[i]
        mots[i + 2] = mots[i + 2] + " »"
    texte = " ".join(mots)
    if alea.random() < 0.3:
        i = texte.find(" ", len(texte) // 2)
        if i > 0:
            texte = texte[:i] + "," + texte[i:]
    fin = alea.choice([".", ".", ".", ".", " !", " ?", "…"])
    return texte[0].upper() + texte[1:] + fin


def article(alea, numero, premier_jour):
    journal = alea.choice(JOURNAUX)
    jour = premier_jour + datetime.timedelta(days=alea.randint(0, 729))
    date = f"{JOURS[jour.weekday()]}, {jour.day} {MOIS[jour.month - 1]} {jour.year}"
    lignes = [f"{journal}, no. {10000 + numero}", date, alea.choice(RUBRIQUES),
              phrase(alea).rstrip(".!?…"), f"{alea.choice(PRENOMS)} {alea.choice(NOMS)}", ""]
    for _ in range(alea.randint(4, 12)):
        lignes.append(" ".join(phrase(alea) for _ in range(alea.randint(2, 5))))
        lignes.append("")
    return lignes, journal, jour


def main():
    p = argparse.ArgumentParser()
    p.add_argument("--articles", type=int, default=10000)
    p.add_argument("--par-fichier", type=int, default=100)
    p.add_argument("sortie")
    a = p.parse_args()
    if a.articles > 7 * 100 * a.par_fichier:
        raise SystemExit("trop d'articles pour 7 dossiers de 100 fichiers")
    alea = random.Random(20051)
    premier_jour = datetime.date(2005, 1, 1)
    for d in ("ARCHIVE", "ARTICLES", "ARCHIVE_BRUT"):
        shutil.rmtree(os.path.join(a.sortie, d), ignore_errors=True)
        os.makedirs(os.path.join(a.sortie, d))
    numero = 0
    fichier = 0
    octets = 0
    while numero < a.articles:
        fichier += 1
        n, k = (fichier - 1) // 100 + 1, (fichier - 1) % 100 + 1
        lignes = [f"Résultats de la recherche — fichier {fichier} — {a.par_fichier} documents"]
        for j in range(min(a.par_fichier, a.articles - numero)):
            numero += 1
            corps, journal, jour = article(alea, numero, premier_jour)
            if j > 0:
                lignes.append(PIED)
                lignes.append(f"Document {numero:06d} · référence {jour.isoformat()}")
            lignes.extend(corps)
        lignes.append(PIED)
        lignes.append("Fin de la sélection")
        dossier = os.path.join(a.sortie, "ARCHIVE", str(n))
        os.makedirs(dossier, exist_ok=True)
        donnees = b"\xef\xbb\xbf" + "\r\n".join(lignes).encode("utf-8") + b"\r\n"
        octets += len(donnees)
        with open(os.path.join(dossier, f"{k}.txt"), "wb") as f:
            f.write(donnees)
    with open(os.path.join(a.sortie, "REPERTOIRE.txt"), "wb") as f:
        f.write(b"1\r\n")
    print(f"{numero} articles, {fichier} fichiers, {octets / 1e6:.1f} Mo")


if __name__ == "__main__":
    main()
