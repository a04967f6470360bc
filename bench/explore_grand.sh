#!/usr/bin/env bash
# The exploration at scale: a reproducible corpus of about 200 million tokens (1,140 MB of raw
# text from bench/construire_corpus.py), segmented, indexed (four-character position codes), then
# a query for "les" with its count and distribution (--macro), and the concordance of a rare
# word (at most one page, 39 lines), each timed five times, with the opening of the corpus alone
# (an absent form) measured the same way.
# The corpus carries the invented rare words planted by construire_corpus.py --rares; the
# concordance is timed on the one planted 100 times (more than one page, spread over the corpus).
# Usage: bench/explore_grand.sh [build folder, build by default] [corpus folder] [MB, 1140]
# FILS (default 2) sets --fils of the segmentation and the index build.
# Each stage is skipped when its result is already there; delete the corpus folder when done
# (it takes some 25 GB).
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build}"
corpus="${2:-bench/corpus/explore_grand}"
mo="${3:-1140}"
fils="${FILS:-2}"
exe="$(cd "$build" && pwd)/telvoris"
ress="$(pwd)/tests/fixtures/MORVENTA/morv_res"
mkdir -p bench/resultats
mesure="$(pwd)/bench/resultats/explore_grand"
if [ ! -f "$corpus/REPERTOIRE.txt" ]; then
    echo "Construction du corpus ($mo Mo)..." >&2
    bash bench/construire_corpus.sh --mo "$mo" --rares "$corpus" >/dev/null
fi
if [ ! -d "$corpus/OLBRIN_TT/NB_PARTITIONS" ]; then
    echo "Segmentation et indexation des segments..." >&2
    /usr/bin/time -v -o "$mesure.segmentation.time" "$exe" smn_seg --fils "$fils" --ressources "$ress" -r "$corpus/REPERTOIRE.txt" >/dev/null
fi
index="$corpus/REPERTOIRE_QORX_INDEX"
if [ ! -f "$index/DICTIONNAIRES/FREQUENTIEL_LEMMES.txt" ]; then
    echo "Index d'exploration..." >&2
    rm -rf "$index"
    /usr/bin/time -v -o "$mesure.index.time" "$exe" Form1.smn_idx --fils "$fils" --ressources "$ress" \
        -r N -r "$corpus/REPERTOIRE.txt" >/dev/null
fi
jetons=$(for f in "$corpus"/OLBRIN_TT/NB_PARTITIONS/*.txt; do cat "$f"; echo; done | tr -d '\r' | awk '{s+=$1} END {print s}')
largeur=$(tr -d '\r\n' < "$index/LARGEUR_CODE.txt" 2>/dev/null || echo 3)
# "les" is a short frequent word in the resource tree used here, so its positions are not kept
# (the query says so); the most frequent form whose positions are kept is timed beside it.
# The file puts the forms above 100,000 first in the order found: sorted again by count. sed
# reads its input to the end, where head would stop the pipeline with SIGPIPE.
frequent=$(tr -d '\r' < "$index/DICTIONNAIRES/FREQUENTIEL_FORMES.txt" | LC_ALL=C sort -s -t$'\t' -k1,1nr | cut -f2 \
    | grep -avxF -f <(tr -d '\r' < "$ress/utilitaires/courts_frequents.txt") | grep -av '^[[:punct:]]*$' | sed -n 1p \
    | iconv -f CP1252 -t UTF-8)
# The rare word: the one planted 100 times; in a corpus built without --rares, the first
# alphabetic form of the fewest occurrences (its count is reported).
rare=$(tr -d '\r' < "$index/DICTIONNAIRES/FREQUENTIEL_FORMES.txt" | grep -aP '\tmervolidon$' | cut -f2 || true)
if [ -z "$rare" ]; then
    rare=$(tr -d '\r' < "$index/DICTIONNAIRES/FREQUENTIEL_FORMES.txt" | grep -aP '\t[a-z]{4,}$' | tail -n 1 | cut -f2)
fi
rare_compte=$(tr -d '\r' < "$index/DICTIONNAIRES/FREQUENTIEL_FORMES.txt" | grep -aP "\t${rare}\$" | sed -n 1p | cut -f1)
sync
for i in 1 2 3 4 5; do
    /usr/bin/time -v -o "$mesure.les$i.time" "$exe" requete "$corpus/REPERTOIRE.txt" --forme les --macro > "$mesure.les.txt"
    /usr/bin/time -v -o "$mesure.frequent$i.time" "$exe" requete "$corpus/REPERTOIRE.txt" --forme "$frequent" --macro \
        > "$mesure.frequent.txt"
    /usr/bin/time -v -o "$mesure.rare$i.time" "$exe" requete "$corpus/REPERTOIRE.txt" --forme "$rare" --concordance \
        > "$mesure.rare.txt"
    /usr/bin/time -v -o "$mesure.ouverture$i.time" "$exe" requete "$corpus/REPERTOIRE.txt" --forme zzzqqq --macro >/dev/null || true
    # Without --macro the partitions' titles are not built: the opening that a concordance pays.
    /usr/bin/time -v -o "$mesure.ouverture_conc$i.time" "$exe" requete "$corpus/REPERTOIRE.txt" --forme zzzqqq \
        --concordance >/dev/null || true
done
RARE_COMPTE="$rare_compte" python3 - "$mesure" "$jetons" "$largeur" "$rare" "$frequent" <<'PY' | tee "$mesure.txt"
import os, re, statistics, sys
mesure, jetons, largeur, rare, frequent = sys.argv[1], int(sys.argv[2]), sys.argv[3], sys.argv[4], sys.argv[5]
def lire(nom):
    t = open(f"{mesure}.{nom}.time", errors="replace").read()
    h = re.search(r"Elapsed \(wall clock\) time.*: (.*)", t).group(1).split(":")
    s = sum(float(x) * 60 ** (len(h) - 1 - k) for k, x in enumerate(h))
    return s, int(re.search(r"Maximum resident set size \(kbytes\): (\d+)", t).group(1))
print(f"corpus : {jetons:,} jetons, codes de position de {largeur} caractères".replace(",", " "))
for etape in ("segmentation", "index"):
    if os.path.exists(f"{mesure}.{etape}.time"):
        s, m = lire(etape)
        print(f"{etape} : {s:.1f} s, mémoire maximale {m / 1024:.0f} Mio")
o = statistics.median(lire(f"ouverture{i}")[0] for i in range(1, 6))
print(f"ouverture seule (forme absente, --macro : titres des partitions) : médiane {o * 1000:.0f} ms")
oc = statistics.median(lire(f"ouverture_conc{i}")[0] for i in range(1, 6))
print(f"ouverture seule (forme absente, --concordance : sans titres) : médiane {oc * 1000:.0f} ms")
for nom, libelle in (("les", "les --macro (compte et distribution)"),
                     ("frequent", f"{frequent} --macro (compte et distribution)"), ("rare", f"{rare} ({os.environ.get('RARE_COMPTE', '?')} occ.) --concordance")):
    mesures = [lire(f"{nom}{i}") for i in range(1, 6)]
    med = statistics.median(s for s, _ in mesures)
    base = oc if nom == "rare" else o
    print(f"{libelle} : médiane {med * 1000:.0f} ms, meilleure {min(s for s, _ in mesures) * 1000:.0f} ms, "
          f"requête moins ouverture {(med - base) * 1000:.0f} ms ; mémoire maximale {max(m for _, m in mesures) / 1024:.0f} Mio")
for nom in ("les", "frequent"):
    print(f"début du résultat de {nom} :", open(f"{mesure}.{nom}.txt", errors="replace").read()[:200].replace("\r\n", " | "))
PY
