#!/usr/bin/env bash
# Benchmark of loading the general dictionary dico/olbrin (300 files generated from Grammalecte's
# lexicon) with its interpretations, as dictionary application loads it at each run. Usage:
#   bench/chargement_dictionnaire.sh [BUILD_FOLDER]
# "telvoris verifier-ressources" times the load alone (ChargerDico with interpretations) after
# checking every file; five runs, best and median of that figure, and the peak resident memory
# of the whole check. The files are in the page cache after the first run, as they are when a
# function reloads them.
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build}"
if [ ! -x "$build/telvoris" ] || [ ! -f "$build/MORVENTA/morv_res/dico/olbrin/15t.txt" ]; then
    cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
    cmake --build "$build" -j2 --target telvoris ressources
fi
arbre="$build/MORVENTA/morv_res"
octets=$(cat "$arbre"/dico/olbrin/*.txt | wc -c)
lignes=$(cat "$arbre"/dico/olbrin/*.txt | wc -l)
mkdir -p bench/resultats
resultat=bench/resultats/chargement_dictionnaire.txt
secondes=()
kio=0
for essai in 1 2 3 4 5; do
    /usr/bin/time -v -o /tmp/telvoris_bench_dico "$build/telvoris" verifier-ressources "$arbre" > /tmp/telvoris_bench_dico_sortie
    s=$(grep 'Dictionnaire chargé' /tmp/telvoris_bench_dico_sortie | sed 's/.* en \([0-9,]*\) s$/\1/' | tr , .)
    secondes+=("$s")
    k=$(grep 'Maximum resident' /tmp/telvoris_bench_dico | awk '{print $NF}')
    [ "$k" -gt "$kio" ] && kio=$k
done
tries=$(printf '%s\n' "${secondes[@]}" | sort -g)
meilleur=$(echo "$tries" | head -1)
median=$(echo "$tries" | sed -n 3p)
{
    echo "Chargement de dico/olbrin avec interprétations : $lignes lignes, $octets octets, 300 fichiers"
    echo "  meilleur : ${meilleur} s, médiane : ${median} s ($(awk -v o="$octets" -v s="$median" 'BEGIN{printf "%.0f", o/s/1e6}') Mo/s, $(awk -v l="$lignes" -v s="$median" 'BEGIN{printf "%.0f", l/s}') lignes/s)"
    echo "  mémoire résidente maximale de la vérification complète : $((kio / 1024)) Mio"
} | tee "$resultat"
