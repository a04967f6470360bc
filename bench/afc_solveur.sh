#!/usr/bin/env bash
# Benchmark of the correspondence-analysis solver: a reproducible 20,000 x 1,000 matrix (built by
# bench/construire_matrice_afc.py), solved by axisolve with the command line of the AFC run.
# Usage: bench/afc_solveur.sh [ROWS COLUMNS]   (default 20000 1000)
# Reports wall time, processor time and peak resident memory; the figures go to bench/resultats/.
# AXISOLVE=path/to/axisolve uses a binary already built instead of building build/.
set -euo pipefail
cd "$(dirname "$0")/.."
lignes="${1:-20000}"
colonnes="${2:-1000}"
if [ -n "${AXISOLVE:-}" ]; then
    exe="$AXISOLVE"
else
    cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
    cmake --build build -j1 --target axisolve >/dev/null
    exe=build/axisolve
fi
dossier="bench/corpus/afc_${lignes}x${colonnes}"
matrice="$dossier/MATRICE.txt"
mkdir -p "$dossier"
if [ ! -f "$matrice" ]; then
    python3 bench/construire_matrice_afc.py "$lignes" "$colonnes" "$matrice"
fi
F="$dossier/MATRICE/"
mkdir -p "$F"
mkdir -p bench/resultats
sortie="bench/resultats/afc_solveur_${lignes}x${colonnes}.txt"
/usr/bin/time -v -o "$sortie.time" "$exe" --eigenvalues="${F}eigen.txt" --rcoor="${F}corli.txt" \
    --rcontrib="${F}conli.txt" --rcos2="${F}cosli.txt" --rdisto="${F}disli.txt" --ccoor="${F}corco.txt" \
    --ccontrib="${F}conco.txt" --ccos2="${F}cosco.txt" --cdisto="${F}disco.txt" "$matrice" >/dev/null
s=$(grep 'Elapsed (wall clock)' "$sortie.time" | awk '{print $NF}' | awk -F: '{ if (NF==3) print $1*3600+$2*60+$3; else print $1*60+$2 }')
cpu=$(grep -E '(User|System) time' "$sortie.time" | awk '{s+=$NF} END {print s}')
kio=$(grep 'Maximum resident set size' "$sortie.time" | awk '{print $NF}')
mo=$(du -m "$matrice" | cut -f1)
facteurs=$(($(wc -l < "${F}eigen.txt") - 1))
{
    echo "axisolve, matrice ${lignes} x ${colonnes} (${mo} Mo), ${facteurs} facteurs écrits"
    echo "temps : ${s} s (${cpu} s de processeur), mémoire maximale : $((kio / 1024)) Mo"
} | tee "$sortie"
rm -f "$sortie.time"
