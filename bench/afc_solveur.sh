#!/usr/bin/env bash
# Benchmark of the correspondence-analysis solver, side by side with R's `ca` on the same matrices:
# reproducible 20,000 x 1,000 and 50,000 x 2,000 count tables (bench/construire_matrice_afc.py),
# axisolve run with the command line of the AFC run, R run with bench/afc_reference_r.R.
# Reports wall time, processor time and peak resident memory (/usr/bin/time -v) of each, their
# ratio, and the agreement of eigenvalues and coordinates (bench/afc_comparer.py).
#
# Usage: bash bench/afc_solveur.sh [--r-grand] [--sans-r] [BUILD_DIR|AXISOLVE_EXE] [MATRICES_DIR]
#   BUILD_DIR     a build folder holding axisolve (default build/, built if needed)
#   MATRICES_DIR  where the matrices are made and kept (default bench/corpus)
#   --r-grand     also runs R on 50,000 x 2,000 (about 5 min and 3 GB); otherwise R runs on
#                 20,000 x 1,000 only
#   --sans-r      no R run at all
# Targets: 20,000 x 1,000 under 1.5 s; 50,000 x 2,000 under 12 s with a peak under 1.2 GB.
set -euo pipefail
racine="$(cd "$(dirname "$0")/.." && pwd)"
r_grand=0
sans_r=0
positionnels=()
for a in "$@"; do
    case "$a" in
        --r-grand) r_grand=1 ;;
        --sans-r) sans_r=1 ;;
        -h|--help) sed -n '2,15p' "$0"; exit 0 ;;
        *) positionnels+=("$a") ;;
    esac
done
cible="${positionnels[0]:-$racine/build}"
matrices="${positionnels[1]:-$racine/bench/corpus}"
if [ -d "$cible" ]; then
    if [ ! -x "$cible/axisolve" ]; then
        cmake -S "$racine" -B "$cible" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
        cmake --build "$cible" --target axisolve >/dev/null
    fi
    exe="$cible/axisolve"
else
    exe="$cible"
fi
[ -x "$exe" ] || { echo "axisolve introuvable : $exe" >&2; exit 2; }
if [ "$sans_r" = 0 ]; then
    if ! command -v Rscript >/dev/null || ! Rscript -e 'suppressPackageStartupMessages(library(ca))' >/dev/null 2>&1; then
        echo "R et son paquet ca sont nécessaires pour la comparaison : sudo apt-get install r-base-core r-cran-ca" >&2
        echo "(ou --sans-r pour ne mesurer qu'axisolve)" >&2
        exit 2
    fi
fi
mkdir -p "$racine/bench/resultats"
rapport="$racine/bench/resultats/afc_solveur.txt"
: > "$rapport"
dire() { echo "$*" | tee -a "$rapport"; }

# Seconds of wall time, processor seconds and peak MiB from a /usr/bin/time -v report.
mesures() {
    local s cpu kio
    s=$(grep 'Elapsed (wall clock)' "$1" | awk '{print $NF}' | awk -F: '{ if (NF==3) print $1*3600+$2*60+$3; else print $1*60+$2 }')
    cpu=$(grep -E '(User|System) time' "$1" | awk '{s+=$NF} END {printf "%.2f", s}')
    kio=$(grep 'Maximum resident set size' "$1" | awk '{print $NF}')
    echo "$s $cpu $((kio / 1024))"
}

dire "Solveur d'AFC : axisolve ($exe) et R ca, $(nproc) cœurs, charge au départ : $(cut -d' ' -f1-3 /proc/loadavg)"
for taille in 20000x1000 50000x2000; do
    lignes=${taille%x*}
    colonnes=${taille#*x}
    dossier="$matrices/afc_$taille"
    matrice="$dossier/MATRICE.txt"
    mkdir -p "$dossier"
    if [ ! -f "$matrice" ]; then
        echo "construction de $matrice ..." >&2
        python3 "$racine/bench/construire_matrice_afc.py" "$lignes" "$colonnes" "$matrice"
    fi
    F="$dossier/MATRICE/"
    mkdir -p "$F"
    /usr/bin/time -v -o "$dossier/axisolve.time" "$exe" --eigenvalues="${F}eigen.txt" --rcoor="${F}corli.txt" \
        --rcontrib="${F}conli.txt" --rcos2="${F}cosli.txt" --rdisto="${F}disli.txt" --ccoor="${F}corco.txt" \
        --ccontrib="${F}conco.txt" --ccos2="${F}cosco.txt" --cdisto="${F}disco.txt" "$matrice" > "$dossier/axisolve.log"
    read -r s cpu mo < <(mesures "$dossier/axisolve.time")
    facteurs=$(($(wc -l < "${F}eigen.txt") - 1))
    dire ""
    dire "matrice $lignes x $colonnes ($(du -m "$matrice" | cut -f1) Mo, doubles : $((lignes * colonnes * 8 / 1048576)) Mo), $facteurs facteurs écrits"
    dire "  axisolve : ${s} s (${cpu} s de processeur), mémoire maximale ${mo} Mo"
    dire "             $(grep -E 'lues en|calcul en|écrits en' "$dossier/axisolve.log" | sed 's/^axisolve : //' | tr '\n' ' ')"
    if [ "$sans_r" = 1 ] || { [ "$taille" = 50000x2000 ] && [ "$r_grand" = 0 ]; }; then
        dire "  R ca : non lancé (--r-grand pour ce format)"
        continue
    fi
    R="$dossier/R"
    mkdir -p "$R"
    /usr/bin/time -v -o "$dossier/r.time" Rscript "$racine/bench/afc_reference_r.R" "$matrice" "$facteurs" "$R" > "$dossier/r.log"
    read -r rs rcpu rmo < <(mesures "$dossier/r.time")
    rlecture=$(awk '/^lecture/ {print $2}' "$dossier/r.log")
    rcalcul=$(awk '/^calcul/ {print $2}' "$dossier/r.log")
    dire "  R ca : ${rs} s en tout (${rcpu} s de processeur ; lecture ${rlecture} s, ca() ${rcalcul} s), mémoire maximale ${rmo} Mo"
    dire "  rapport R / axisolve : $(awk -v a="$s" -v b="$rs" 'BEGIN {printf "%.1f", b / a}') en temps total," \
         "$(awk -v a="$s" -v b="$rcalcul" 'BEGIN {printf "%.1f", b / a}') pour ca() seul contre axisolve complet," \
         "$(awk -v a="$mo" -v b="$rmo" 'BEGIN {printf "%.1f", b / a}') en mémoire"
    dire "  $(python3 "$racine/bench/afc_comparer.py" "${F%/}" "$R")"
done
dire ""
dire "(résultats aussi dans $rapport)"
