#!/usr/bin/env bash
# Benchmark of the simple-word review session (smn_lev) after the automatic pass: opening a
# session on the whole corpus, and validating the case with the most occurrences. Usage:
#   bench/levee.sh [BUILD_FOLDER] [SEGMENTED_CORPUS] [WORK_FOLDER]
# SEGMENTED_CORPUS defaults to bench/corpus/presse_100mo (see bench/passe_automatique.sh for how
# it is built). Its tagged texts are copied into WORK_FOLDER (default /dev/shm/telvoris_levee),
# run through the automatic pass, and the copy is removed at the end. The case state file is set
# so that the largest case comes first; the rest is what a person would meet.
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build}"
source="${2:-bench/corpus/presse_100mo}"
travail="${3:-/dev/shm/telvoris_levee}"
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" -j1 --target telvoris ressources tv_pipeline tv_lexicon tv_core >/dev/null
if [ ! -f "$source/REPERTOIRE.txt" ] || [ ! -d "$source/OLBRIN_TT" ]; then
    echo "Corpus segmenté introuvable : $source (voir l'en-tête de bench/passe_automatique.sh)" >&2
    exit 2
fi
arbre="$build/MORVENTA/morv_res"
rm -rf "$travail"
trap 'rm -rf "$travail"' EXIT
mkdir -p "$travail/OLBRIN_TT"
cp "$source/REPERTOIRE.txt" "$travail/"
find "$source/OLBRIN_TT" -maxdepth 1 -name '*.txt' -exec cp -t "$travail/OLBRIN_TT" {} +
liste="$travail/REPERTOIRE.txt"
"$build/telvoris" smn_aup --ressources "$arbre" -r "$liste" >/dev/null
tt="$travail/OLBRIN_TT"
octets=$(cat "$tt"/*.txt | wc -c)

# The largest case first: every case in front of it is marked as treated.
read -r rang occ < <(awk -F'\t' '{ n = split($NF, p, "-"); if (n > max) { max = n; r = NR } } END { print r, max }' "$tt/#INDEX_ms.txt")
nbcas=$(wc -l < "$tt/#INDEX_ms.txt")
awk -v r="$rang" -v n="$nbcas" 'BEGIN { for (i = 1; i <= n; i++) printf "%s\r\n", (i < r ? "1" : "0") }' > "$tt/#F_ETAT.txt"

g++ -std=c++20 -O2 -I src bench/levee_mesure.cpp "$build/libtv_pipeline.a" "$build/libtv_lexicon.a" "$build/libtv_core.a" \
    -o "$travail/levee_mesure"
/usr/bin/time -f "%e %M" -o "$travail/temps_mesure" "$travail/levee_mesure" "$liste" > "$travail/mesure"
read -r s_mesure k_mesure < "$travail/temps_mesure"

# The same opening through the command: way of working, first case shown, stop with saving.
/usr/bin/time -f "%e %M" -o "$travail/temps_cli" "$build/telvoris" smn_lev --ressources "$arbre" -r "$liste" \
    -r O -r I -r O > "$travail/sortie_cli"
read -r s_cli k_cli < "$travail/temps_cli"

mkdir -p bench/resultats
{
    echo "Levée simples ambigus (smn_lev) : $octets octets étiquetés, $nbcas cas, le plus grand (n°$rang) de $occ occurrences"
    sed 's/^/  /' "$travail/mesure"
    echo "  mesure en processus : $s_mesure s au total, $((k_mesure / 1024)) Mio au plus"
    echo "  telvoris smn_lev (ouverture, affichage du premier cas, interruption) : $s_cli s, $((k_cli / 1024)) Mio au plus"
} | tee bench/resultats/levee.txt
