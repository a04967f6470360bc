#!/usr/bin/env bash
# Benchmark of the map views: a reproducible flat map and globe of N labels (default 5,000, the
# viewers' limit; bench/construire_cartes.py), loaded and painted in a window of 1280 x 800 under
# Xvfb, a 90° rotation redrawn, every label hovered; a PNG of each map goes to bench/resultats/.
# Usage: bench/carte.sh [N]
set -euo pipefail
cd "$(dirname "$0")/.."
n="${1:-5000}"
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build -j1 --target bench_carte telvoris >/dev/null
dossier="bench/corpus/cartes_$n"
mkdir -p "$dossier" bench/resultats
[ -f "$dossier/_PLANISPH_123.txt" ] || python3 bench/construire_cartes.py "$n" "$dossier"
sortie="bench/resultats/carte_$n.txt"
/usr/bin/time -v -o "$sortie.time" xvfb-run -a -s "-screen 0 1600x1000x24" \
    build/bench_carte "$dossier/coli_PROJ12.txt" "$dossier/_PLANISPH_123.txt" bench/resultats > "$sortie"
kio=$(grep 'Maximum resident set size' "$sortie.time" | awk '{print $NF}')
echo "mémoire maximale : $((kio / 1024)) Mo" >> "$sortie"
# The command line's SVG of the same maps.
t0=$(date +%s.%N)
build/telvoris carte "$dossier/coli_PROJ12.txt" --svg bench/resultats/carte_plan.svg >/dev/null
build/telvoris carte "$dossier/_PLANISPH_123.txt" --svg bench/resultats/carte_globe.svg >/dev/null
t1=$(date +%s.%N)
echo "telvoris carte --svg, les deux cartes : $(echo "($t1 - $t0) * 1000" | bc | cut -d. -f1) ms" >> "$sortie"
rm -f "$sortie.time"
cat "$sortie"
