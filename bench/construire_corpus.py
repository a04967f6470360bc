"""Construit un corpus de presse synthetique pour les mesures de performance.

La matiere est la prose francaise de la Debian Reference (paquet Debian
debian-reference-fr). Elle est decoupee en articles de 20 a 40 lignes,
chacun precede d'une ligne de metadonnees
    <QORX_ATTR JOURNAL=... DATE=AAAA-MM-JJ RUBRIQUE=... TITRE=... >
puis repetee (metadonnees variees, ordre decale) jusqu'a la taille voulue.

Sortie (deterministe, aucun tirage aleatoire) :
    <sortie>/ARCHIVE_BRUT/<JOURNAL>_<AAAA-MM-JJ>.txt   (200 a 500 Ko chacun)
    <sortie>/REPERTOIRE.txt                             (noms de base, un par ligne)
Tous les fichiers sont en Windows-1252, fins de ligne CR LF.

Usage : python3 bench/construire_corpus.py [--mo N] [--rares] [--detail] [sortie]
    sortie par defaut : bench/corpus ; N en millions d'octets (defaut 100).
    --rares : plante des mots inventes de frequence connue (voir RARES), chacun
    dans une ligne ajoutee en tete d'article, a intervalles reguliers du corpus ;
    sans cette option, le corpus est le meme octet pour octet.
"""
import argparse
import datetime
import gzip
import os
import re
import sys
import unicodedata

SOURCE = '/usr/share/debian-reference/debian-reference.fr.txt.gz'
PAQUET = 'debian-reference-fr'
JOURNAUX = ['LE_COURRIER_DU_LITTORAL', 'L_ECHO_DES_PLATEAUX', 'LA_VIGIE_DU_NORD']
PREMIER_JOUR = datetime.date(2021, 1, 4)
TAILLE_MIN, TAILLE_MAX = 200000, 500000
# La matiere repetee n'a pas de mot rare : ces mots inventes (absents de la
# source) y sont plantes avec ces effectifs exacts.
RARES = [('zorvandelle', 1), ('quibrastine', 10), ('mervolidon', 100)]

MOTS_FR = set('le la les des de du et est une un pour dans vous pas sur qui que '
              'en au aux avec par ou ce cette ces il sont son sa ses plus'.split())
MOTS_EN = set('the and of to is for with this you are be by it as on that from '
              'can use your if in or an at not'.split())
RE_TITRE = re.compile(r'^(\d+(?:\.\d+)*)\.\s+(\S.*)$')
RE_CHAPITRE = re.compile(r'^(?:Chapitre|Annexe)\s+\w+\.\s+(\S.*)$')
RE_MOT = re.compile(r"[^\W\d_]+")
RE_TABLEAU = re.compile(r'[|]|[-=_~*]{4,}|[+][-=]|^[+=~]')
RE_PUCE = re.compile(r'^(?:[*+o-]|\d+\.)\s+')


def valeur(texte, maxi):
    """Valeur de metadonnee : pas de blanc, pas de < > = ni guillemets."""
    v = re.sub(r'[<>="\u00ab\u00bb\u201c\u201d]', '', texte)
    v = re.sub(r'\s+', '_', v.strip()).strip('_')
    return v[:maxi].rstrip('_') or 'Sans_titre'


def table_cp1252(texte):
    """Table de traduction des caracteres absents de Windows-1252."""
    table = {}
    for ch in set(texte):
        try:
            ch.encode('cp1252')
            continue
        except UnicodeEncodeError:
            pass
        if ch in '\u202f\u2007\u2009\u200a':
            table[ord(ch)] = '\u00a0'
            continue
        if ch in '\u2010\u2011\u2012':
            table[ord(ch)] = '-'
            continue
        d = ''.join(c for c in unicodedata.normalize('NFKD', ch)
                    if not unicodedata.combining(c))
        try:
            d.encode('cp1252')
            table[ord(ch)] = d if d else '?'
        except UnicodeEncodeError:
            table[ord(ch)] = '?'
    return table


def ligne_de_prose(l):
    if RE_TABLEAU.search(l):
        return False
    if l.startswith(('$ ', '# ', '%')):
        return False
    visibles = len(l) - l.count(' ')
    lettres = sum(1 for c in l if c.isalpha())
    return visibles > 0 and lettres >= 0.7 * visibles


def paragraphe_francais(lignes):
    mots = RE_MOT.findall(' '.join(lignes).lower())
    fr = sum(1 for m in mots if m in MOTS_FR)
    en = sum(1 for m in mots if m in MOTS_EN)
    return fr >= 1 and fr > en


def lire_paragraphes(texte):
    """Paragraphes de prose francaise : liste de (chapitre, section, lignes)."""
    paras, courant = [], []
    chapitre = section = ''
    corps = False  # on ignore tout ce qui precede le premier chapitre

    def clore():
        if courant and corps:
            lignes = [RE_PUCE.sub('', l.strip()) for l in courant]
            lignes = [l for l in lignes if ligne_de_prose(l)]
            if lignes and paragraphe_francais(lignes):
                paras.append((chapitre, section, lignes))
        courant.clear()

    for brute in texte.splitlines():
        m = RE_CHAPITRE.match(brute)  # << Chapitre 3. Titre >> en colonne 0
        if m:
            clore()
            corps = True
            chapitre = section = m.group(1)
            continue
        m = RE_TITRE.match(brute)  # titre de section, en colonne 0
        if m:
            clore()
            section = m.group(2)
            continue
        if not brute.strip():
            clore()
        else:
            courant.append(brute)
    clore()
    return paras


def decouper_articles(paras):
    """Regroupe les paragraphes en articles de 20 a 40 lignes."""
    articles, lignes, rub, tit = [], [], '', ''
    for chapitre, section, pl in paras:
        if not lignes:
            rub, tit = chapitre, section
        lignes.extend(pl)
        cible = 20 + (len(articles) * 7) % 21
        if len(lignes) >= cible:
            articles.append((rub, tit, lignes[:40]))
            lignes = []
    if len(lignes) >= 20:
        articles.append((rub, tit, lignes))
    return articles


def main():
    ici = os.path.dirname(os.path.abspath(__file__))
    ap = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    ap.add_argument('sortie', nargs='?', default=os.path.join(ici, 'corpus'))
    ap.add_argument('--mo', type=float, default=100.0,
                    help='taille visee en millions d\'octets (defaut 100)')
    ap.add_argument('--rares', action='store_true',
                    help='plante des mots rares de frequence connue')
    ap.add_argument('--detail', action='store_true', help='liste chaque fichier ecrit')
    args = ap.parse_args()

    if not os.path.isfile(SOURCE):
        print('Fichier source absent : %s' % SOURCE, file=sys.stderr)
        print('Installez-le avec : apt-get install -y %s' % PAQUET, file=sys.stderr)
        sys.exit(1)
    with gzip.open(SOURCE, 'rt', encoding='utf-8', errors='replace') as f:
        texte = f.read()
    texte = texte.translate(table_cp1252(texte))

    articles = decouper_articles(lire_paragraphes(texte))
    if not articles:
        print('Aucun article extrait de %s' % SOURCE, file=sys.stderr)
        sys.exit(1)
    corps = [('\r\n'.join(l) + '\r\n').encode('cp1252') for _, _, l in articles]
    rubriques = [valeur(r, 50) for r, _, _ in articles]
    titres = [valeur(t, 60) for _, t, _ in articles]

    archive = os.path.join(args.sortie, 'ARCHIVE_BRUT')
    os.makedirs(archive, exist_ok=True)
    for nom in os.listdir(archive):  # anciens fichiers de ce meme programme
        if nom.endswith('.txt') and any(nom.startswith(j + '_') for j in JOURNAUX):
            os.remove(os.path.join(archive, nom))

    vise = int(args.mo * 1000000)
    # (octet vise, mot) : le mot va dans l'article qui commence a cet octet ou apres,
    # au milieu de chacune des c tranches egales du corpus.
    plants = sorted((vise * (2 * j + 1) // (2 * c), mot)
                    for mot, c in (RARES if args.rares else []) for j in range(c))
    p = 0
    total = n_articles = 0
    noms, tailles = [], []
    n, i = len(articles), 0  # i : rang de l'article suivant dans la suite repetee
    while total < vise:
        k = len(noms)
        journal = JOURNAUX[k % len(JOURNAUX)]
        date = (PREMIER_JOUR + datetime.timedelta(days=k // len(JOURNAUX))).isoformat()
        cible = TAILLE_MIN + (k * 104729) % (TAILLE_MAX - TAILLE_MIN + 1)
        cible = min(cible, vise - total)
        morceaux, taille = [], 0
        while taille < cible:
            tour, pos = divmod(i, n)
            a = (pos + tour * 37) % n  # ordre decale a chaque tour
            titre = titres[a] if tour == 0 else '%s_%d' % (titres[a], tour + 1)
            entete = ('<QORX_ATTR JOURNAL=%s DATE=%s RUBRIQUE=%s TITRE=%s >\r\n'
                      % (journal, date, rubriques[a], titre)).encode('cp1252')
            morceaux.append(entete)
            taille += len(entete)
            while p < len(plants) and plants[p][0] <= total + taille:
                ligne = ('On signale ici le mot %s.\r\n' % plants[p][1]).encode('cp1252')
                morceaux.append(ligne)
                taille += len(ligne)
                p += 1
            morceaux.append(corps[a])
            taille += len(corps[a])
            i += 1
            n_articles += 1
        nom = '%s_%s' % (journal, date)
        with open(os.path.join(archive, nom + '.txt'), 'wb') as f:
            f.write(b''.join(morceaux))
        noms.append(nom)
        tailles.append(taille)
        total += taille
        if args.detail:
            print('%s.txt\t%d octets' % (nom, taille))
    with open(os.path.join(args.sortie, 'REPERTOIRE.txt'), 'wb') as f:
        f.write(('\r\n'.join(noms) + '\r\n').encode('cp1252'))

    print('Source : %s (%d articles distincts)' % (SOURCE, n))
    print('Ecrit dans %s :' % os.path.abspath(args.sortie))
    print('  ARCHIVE_BRUT/ : %d fichiers, %d articles, %d octets (%.1f Mo)'
          % (len(noms), n_articles, total, total / 1e6))
    print('  tailles de fichier : %d a %d octets' % (min(tailles), max(tailles)))
    print('  dates : %s a %s' % (noms[0][-10:], noms[-1][-10:]))
    print('  REPERTOIRE.txt : %d noms' % len(noms))
    if plants:
        print('  mots rares plantes : %s (%d places sur %d)'
              % (', '.join('%s %d' % r for r in RARES if args.rares), p, len(plants)))


if __name__ == '__main__':
    main()
