#!/usr/bin/env bash
# Benchmark of the tagging stages after segmentation: the compound marker (smn_cmp) once, then the
# automatic pass (smn_aup: dictionary load, dictionary application and context rules) three times
# on the same input, restored before each run. Usage:
#   bench/passe_automatique.sh [BUILD_FOLDER] [SEGMENTED_CORPUS] [WORK_FOLDER]
# SEGMENTED_CORPUS defaults to bench/corpus/presse_100mo, built and segmented beforehand:
#   bash bench/construire_corpus.sh --mo 100 bench/corpus/presse_100mo
#   build/telvoris smn_seg -r bench/corpus/presse_100mo/REPERTOIRE.txt
# Only its tagged texts are copied, into WORK_FOLDER (default /dev/shm/telvoris_passe_automatique),
# so the corpus itself is never changed. Throughput is the size of the tagged input of the pass
# over the wall-clock time of the whole run, dictionary load included.
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build}"
source="${2:-bench/corpus/presse_100mo}"
travail="${3:-/dev/shm/telvoris_passe_automatique}"
if [ ! -x "$build/telvoris" ] || [ ! -f "$build/MORVENTA/morv_res/dico/olbrin/15t.txt" ]; then
    cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
    cmake --build "$build" -j1 --target telvoris ressources
fi
if [ ! -f "$source/REPERTOIRE.txt" ] || [ ! -d "$source/OLBRIN_TT" ]; then
    echo "Corpus segmenté introuvable : $source (voir l'en-tête de ce script)" >&2
    exit 2
fi
arbre="$build/MORVENTA/morv_res"
rm -rf "$travail"
mkdir -p "$travail/OLBRIN_TT" "$travail/ENTREE"
cp "$source/REPERTOIRE.txt" "$travail/"
find "$source/OLBRIN_TT" -maxdepth 1 -name '*.txt' -exec cp -t "$travail/OLBRIN_TT" {} +
liste="$travail/REPERTOIRE.txt"

mesurer() {  # OPERATION -> "seconds kio" on the last line of /tmp/telvoris_bench_pa
    /usr/bin/time -f "%e %M" -o /tmp/telvoris_bench_pa_temps "$build/telvoris" "$1" --ressources "$arbre" -r "$liste" \
        > /tmp/telvoris_bench_pa_sortie
    cat /tmp/telvoris_bench_pa_temps
}

octets_seg=$(cat "$travail"/OLBRIN_TT/*.txt | wc -c)
read -r s_cmp k_cmp < <(mesurer smn_cmp)
message_cmp=$(cat /tmp/telvoris_bench_pa_sortie)
cp "$travail"/OLBRIN_TT/*.txt "$travail/ENTREE/"
octets=$(cat "$travail"/ENTREE/*.txt | wc -c)
jetons=$(cat "$travail"/ENTREE/*.txt | grep -o '<M \|<MC \|<PC ' | wc -l)

secondes=()
kio=0
for essai in 1 2 3; do
    cp "$travail"/ENTREE/*.txt "$travail/OLBRIN_TT/"
    read -r s k < <(mesurer smn_aup)
    secondes+=("$s")
    [ "$k" -gt "$kio" ] && kio=$k
done
message_aup=$(cat /tmp/telvoris_bench_pa_sortie)
median=$(printf '%s\n' "${secondes[@]}" | sort -g | sed -n 2p)
meilleur=$(printf '%s\n' "${secondes[@]}" | sort -g | head -1)

mkdir -p bench/resultats
{
    echo "Composés (smn_cmp) : $octets_seg octets étiquetés en $s_cmp s" \
         "($(awk -v o="$octets_seg" -v s="$s_cmp" 'BEGIN{printf "%.1f", o/s/1e6}') Mo/s), $((k_cmp / 1024)) Mio au plus"
    echo "  $message_cmp"
    echo "Passe automatique (smn_aup, chargement du dictionnaire compris) : $octets octets, $jetons jetons, $(ls "$travail/ENTREE" | wc -l) textes"
    echo "  meilleur : $meilleur s, médiane de 3 : $median s" \
         "($(awk -v o="$octets" -v s="$median" 'BEGIN{printf "%.1f", o/s/1e6}') Mo/s," \
         "$(awk -v j="$jetons" -v s="$median" 'BEGIN{printf "%.0f", j/s}') jetons/s)"
    echo "  mémoire résidente maximale : $((kio / 1024)) Mio"
    echo "$message_aup" | sed 's/^/  | /'
} | tee bench/resultats/passe_automatique.txt
