#!/usr/bin/env bash
# Benchmark of the exploration views on the corpus of bench/explore_index.sh (about 10 million
# tokens, built, segmented and indexed there when missing): a query of about 2,000 occurrences
# from VALIDER to its first concordance page painted, partitions of the full text shown with
# their marks, a micro-distribution of that query, and both histograms on a sub-corpus of at
# most 499 partitions (the first texts of the list). The views are Form1's own widgets drawn on
# Qt's offscreen platform. Usage: bench/explore_vues.sh [MB of raw text, 57 by default]
set -euo pipefail
cd "$(dirname "$0")/.."
mo="${1:-57}"
BUILD="${BUILD:-build}"
ress="$(pwd)/tests/fixtures/MORVENTA/morv_res"
corpus="bench/corpus/explore_${mo}mo"
exe="$(pwd)/$BUILD/telvoris"
cmake --build "$BUILD" --target telvoris explore_vues >/dev/null
if [ ! -d "$corpus/REPERTOIRE_QORX_INDEX" ]; then
    [ -f "$corpus/REPERTOIRE.txt" ] || bash bench/construire_corpus.sh --mo "$mo" "$corpus" >/dev/null
    [ -d "$corpus/OLBRIN_TT/NB_PARTITIONS" ] || "$exe" smn_seg --ressources "$ress" -r "$corpus/REPERTOIRE.txt" >/dev/null
    "$exe" Form1.smn_idx --ressources "$ress" -r N -r "$corpus/REPERTOIRE.txt" >/dev/null
fi
# The sub-corpus: the first texts while their partitions stay within 499.
sous="$corpus/REPERTOIRE_499.txt"
if [ ! -d "$corpus/REPERTOIRE_499_QORX_INDEX" ]; then
    total=0
    : > "$sous"
    while IFS= read -r nom; do
        nom="${nom%$'\r'}"
        [ -n "$nom" ] || continue
        n=$(tr -d '\r' < "$corpus/OLBRIN_TT/NB_PARTITIONS/$nom.txt" | grep -c .)
        [ $((total + n)) -le 499 ] || break
        total=$((total + n))
        printf '%s\r\n' "$nom" >> "$sous"
    done < "$corpus/REPERTOIRE.txt"
    "$exe" Form1.smn_idx --ressources "$ress" -r N -r "$sous" >/dev/null
fi
index="$corpus/REPERTOIRE_QORX_INDEX"
# The form whose count is the highest at or below 2,000.
forme=$(tr -d '\r' < "$index/DICTIONNAIRES/FREQUENTIEL_FORMES.txt" | awk -F'\t' '!vu && $1 <= 2000 { print $2; vu = 1 }' \
    | iconv -f CP1252 -t UTF-8)
mkdir -p bench/resultats
/usr/bin/time -v -o bench/resultats/explore_vues.time "$BUILD/explore_vues" "$ress" "$corpus/REPERTOIRE.txt" "$forme" "$sous" \
    | tee bench/resultats/explore_vues.txt
grep -E "Maximum resident" bench/resultats/explore_vues.time | tee -a bench/resultats/explore_vues.txt
