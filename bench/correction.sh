#!/usr/bin/env bash
# Benchmarks of verification and correction on the reproducible press corpus (bench/construire_corpus.py,
# prose of the French Debian Reference), segmented by smn_seg:
#   smn_rcf    the unknown-word survey of its level-1 lexicon, with concordances
#   smn_crator the automatic correction of its tagged text (MB/s of OLBRIN_TT)
#   smn_ctc    the census of 10,000 planted faulty words (bench/correction_donnees.py)
#   smn_mocol  the joined-word search over an index of 10,000 run-together words
# Usage: bench/correction.sh [MO]   (corpus size in millions of bytes, default 100)
# Reports wall time and peak resident memory of each run; the figures go to bench/resultats/.
set -euo pipefail
cd "$(dirname "$0")/.."
mo="${1:-100}"
build=build
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" -j2 --target telvoris ressources >/dev/null
exe="$build/telvoris"
R="$build/MORVENTA/morv_res"
corpus="bench/corpus/correction_${mo}"
colles="bench/corpus/correction_colles"
if [ ! -f "$corpus/REPERTOIRE.txt" ]; then
    python3 bench/construire_corpus.py --mo "$mo" "$corpus"
fi
if [ ! -d "$corpus/OLBRIN_TT/LEXINDEX" ]; then
    "$exe" smn_seg --ressources "$R" -r "$corpus/REPERTOIRE.txt" </dev/null >/dev/null
fi
python3 bench/correction_donnees.py lexique "$corpus"
python3 bench/correction_donnees.py inconnus "$R" "$corpus" 10000
python3 bench/correction_donnees.py colles "$R" "$colles" 10000
mkdir -p bench/resultats
sortie=bench/resultats/correction_${mo}.txt
: > "$sortie"
mesure() {
    local libelle="$1"
    shift
    /usr/bin/time -v -o /tmp/telvoris_bench_corr "$exe" "$@" --ressources "$R" --horloge "2026-01-01 00:00:00" \
        </dev/null >/tmp/telvoris_bench_corr_sortie
    local mur kio cpu
    mur=$(grep 'Elapsed (wall clock)' /tmp/telvoris_bench_corr | awk '{print $NF}')
    kio=$(grep 'Maximum resident' /tmp/telvoris_bench_corr | awk '{print $NF}')
    # Processor time (user + system): on a shared machine the wall time is mostly waiting.
    cpu=$(awk '/User time|System time/ {s += $NF} END {printf "%.2f", s}' /tmp/telvoris_bench_corr)
    printf '%-34s mur %10s  cpu %7s s  %6s Mio\n' "$libelle" "$mur" "$cpu" "$((kio / 1024))" | tee -a "$sortie"
}
rm -rf "$corpus/MANQUANTS" "$corpus"/OLBRIN_TT/CORR_*
mesure "smn_rcf (survey, concordances)" smn_rcf -r O -r 1 -r "$corpus/REPERTOIRE.txt" -r 1 -r 3 -r "$corpus/LEXIQUE.txt"
octets=$(cat "$corpus"/OLBRIN_TT/*.txt | wc -c)
mesure "smn_crator ($((octets / 1000000)) Mo etiquetes)" smn_crator -r "$corpus/REPERTOIRE.txt"
mesure "smn_ctc (10 000 mots)" smn_ctc -r 1 -r "$corpus/REPERTOIRE.txt"
mesure "smn_mocol (10 000 mots)" smn_mocol -r "$colles/REPERTOIRE.txt"
echo "items du repérage : $(wc -l < "$corpus/MANQUANTS/LISTE_FC.txt") FC, $(wc -l < "$corpus/MANQUANTS/LISTE_NP.txt") NP" | tee -a "$sortie"
echo "suggestions du recensement : $(wc -l < "$corpus/CORR_SUGGESTIONS.txt") sur 10000," \
    "$(python3 bench/correction_donnees.py part "$corpus")" | tee -a "$sortie"
echo "lignes de MOTS_COUPES.txt : $(wc -l < "$colles/MOTS_COUPES.txt")" | tee -a "$sortie"
