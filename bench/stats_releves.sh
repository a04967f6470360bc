#!/usr/bin/env bash
# Benchmark of the statistics surveys on a reproducible press corpus of about 10 million tokens
# built from Debian's French documentation: "Lexique" at level 0, then a 1,000 x 1,000
# micro-distribution (the 1,000 most frequent forms as rows and columns, whole-line span) and a
# macro-distribution by date of the same 1,000 rows.
# Usage: bench/stats_releves.sh [MB of raw text, default 57]
# Reports wall time, tokens/s and peak resident memory of each command.
set -euo pipefail
cd "$(dirname "$0")/.."
mo="${1:-57}"
# TELVORIS=path/to/telvoris uses a binary already built instead of building build/.
if [ -n "${TELVORIS:-}" ]; then
    exe="$TELVORIS"
else
    . scripts/preparer.sh
    exe=build/telvoris
fi
res=tests/fixtures/MORVENTA/morv_res
corpus="bench/corpus/stats_${mo}mo"
if [ ! -f "$corpus/REPERTOIRE.txt" ]; then
    bash bench/construire_corpus.sh --mo "$mo" "$corpus"
fi
if [ ! -d "$corpus/OLBRIN_TT/LEXINDEX" ]; then
    "$exe" smn_seg --ressources "$res" -r "$corpus/REPERTOIRE.txt" >/dev/null
fi
jetons=$(for f in "$corpus"/OLBRIN_TT/NB_PARTITIONS/*.txt; do cat "$f"; echo; done | awk '{s+=$1} END {print s}')
mkdir -p bench/resultats
sortie=bench/resultats/stats_releves_${mo}mo.txt
horloge="2026-11-21 12:00:00"
mesurer() {  # label, then the command
    local label="$1"; shift
    /usr/bin/time -v -o "$sortie.time" "$@" >/dev/null
    local s cpu kio
    s=$(grep 'Elapsed (wall clock)' "$sortie.time" | awk '{print $NF}' | awk -F: '{ if (NF==3) print $1*3600+$2*60+$3; else print $1*60+$2 }')
    cpu=$(grep -E '(User|System) time' "$sortie.time" | awk '{s+=$NF} END {print s}')
    kio=$(grep 'Maximum resident set size' "$sortie.time" | awk '{print $NF}')
    python3 - "$label" "$jetons" "$s" "$cpu" "$kio" <<'PY'
import sys
label, jetons, s, cpu, kio = sys.argv[1], int(sys.argv[2]), float(sys.argv[3]), float(sys.argv[4]), int(sys.argv[5])
print(f"{label} : {s:.2f} s ({cpu:.2f} s de processeur), {jetons/max(s, 1e-3)/1e6:.1f} M jetons/s, "
      f"mémoire maximale {kio/1024:.0f} Mio")
PY
}
{
echo "corpus : $corpus, $jetons jetons"
# Panel: level 0, no sentence limit, no span; then the post-clitic question.
mesurer "Lexique, niveau 0" "$exe" smn_lx --ressources "$res" --horloge "$horloge" \
    -r 0 -r N -r N -r N -r "$corpus/REPERTOIRE.txt"
lexique="$corpus/LEXIQUES/FORMES_MIN_261121_1200.txt"
head -n 1000 "$lexique" > "$corpus/items_1000.txt"
rm -rf "$corpus/AFC_MICRO/BENCH"
# Panel, then strong threshold, selection, list, exclusion, clipping, rows, columns, name.
mesurer "Micro-distribution 1000 x 1000" "$exe" smn_mic --ressources "$res" --horloge "$horloge" \
    -r 0 -r N -r N -r 10 -r N -r "$corpus/REPERTOIRE.txt" -r 0 -r 2 \
    -r "$corpus/items_1000.txt" -r "$corpus/items_1000.txt" -r BENCH
# Panel, then clipping, specificity, rows, list, key, date cut (year and month).
mesurer "Macro-distribution 1000 lignes par DATE (mois)" "$exe" smn_mac --ressources "$res" --horloge "$horloge" \
    -r 0 -r 2 -r 3 -r "$corpus/items_1000.txt" -r "$corpus/REPERTOIRE.txt" -r DATE -r 1-7
} | tee "$sortie"
