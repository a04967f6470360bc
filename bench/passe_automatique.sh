#!/usr/bin/env bash
# Benchmark of the tagging stages after segmentation, on one thread and on several in one run:
# the compound marker (smn_cmp) once for each thread count, then the automatic pass (smn_aup:
# dictionary load, dictionary application and context rules) three times for each, on the same
# input restored before each run. Usage:
#   bench/passe_automatique.sh [--fils "1 2"] [BUILD_FOLDER] [CORPUS] [WORK_FOLDER]
# CORPUS (default bench/corpus/presse_100mo) holds REPERTOIRE.txt and either its segmented texts
# in OLBRIN_TT or its raw texts in ARCHIVE_BRUT, which are then segmented in the work folder
# first (not measured). The corpus is only read: its texts are copied into WORK_FOLDER (default
# /dev/shm/telvoris_passe_automatique). Throughput is the size of the tagged input of a stage over
# the wall-clock time of the whole run, dictionary load included; the script also says whether
# every thread count left the same files byte for byte.
set -euo pipefail
cd "$(dirname "$0")/.."
fils="1 2"
if [ "${1:-}" = "--fils" ]; then
    fils="$2"
    shift 2
fi
build="${1:-build}"
source="${2:-bench/corpus/presse_100mo}"
travail="${3:-/dev/shm/telvoris_passe_automatique}"
if [ ! -x "$build/telvoris" ] || [ ! -f "$build/MORVENTA/morv_res/dico/olbrin/15t.txt" ]; then
    cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
    cmake --build "$build" -j2 --target telvoris ressources
fi
arbre="$build/MORVENTA/morv_res"
rm -rf "$travail"
mkdir -p "$travail/OLBRIN_TT" "$travail/SEGMENTE"
cp "$source/REPERTOIRE.txt" "$travail/"
liste="$travail/REPERTOIRE.txt"
if compgen -G "$source/OLBRIN_TT/*.txt" >/dev/null; then
    find "$source/OLBRIN_TT" -maxdepth 1 -name '*.txt' -exec cp -t "$travail/SEGMENTE" {} +
elif [ -d "$source/ARCHIVE_BRUT" ]; then
    echo "Segmentation préalable de $source (non mesurée)..." >&2
    cp -r "$source/ARCHIVE_BRUT" "$travail/"
    "$build/telvoris" smn_seg --ressources "$arbre" -r "$liste" >/dev/null
    find "$travail/OLBRIN_TT" -maxdepth 1 -name '*.txt' -exec cp -t "$travail/SEGMENTE" {} +
    rm -rf "$travail/ARCHIVE_BRUT"
else
    echo "Corpus introuvable : $source (OLBRIN_TT ou ARCHIVE_BRUT attendu, voir l'en-tête de ce script)" >&2
    exit 2
fi

mesurer() {  # OPERATION THREADS -> "seconds kio"
    /usr/bin/time -f "%e %M" -o /tmp/telvoris_bench_pa_temps_$$ "$build/telvoris" "$1" --fils "$2" \
        --ressources "$arbre" -r "$liste" >/tmp/telvoris_bench_pa_sortie_$$
    cat /tmp/telvoris_bench_pa_temps_$$
}
# The state of the tagged tree of a fresh segmentation.
remettre() {  # FOLDER of texts
    rm -rf "$travail/OLBRIN_TT"
    mkdir -p "$travail/OLBRIN_TT"
    cp "$1"/*.txt "$travail/OLBRIN_TT/"
}
empreinte() { (cd "$travail/OLBRIN_TT" && find . -type f -print0 | sort -z | xargs -0 md5sum | md5sum | cut -c1-32); }

octets_seg=$(cat "$travail"/SEGMENTE/*.txt | wc -c)
mkdir -p bench/resultats
resultat=bench/resultats/passe_automatique.txt
echo "Composés et passe automatique : $source, $(ls "$travail/SEGMENTE" | wc -l) textes, $(nproc) cœurs," \
     "charge $(cut -d' ' -f1-3 /proc/loadavg)" | tee "$resultat"
ref_cmp="" ref_aup="" memes=oui
for n in $fils; do
    remettre "$travail/SEGMENTE"
    read -r s_cmp k_cmp < <(mesurer smn_cmp "$n")
    message_cmp=$(cat /tmp/telvoris_bench_pa_sortie_$$)
    e=$(empreinte)
    if [ -z "$ref_cmp" ]; then ref_cmp=$e; elif [ "$e" != "$ref_cmp" ]; then memes=non; fi
    rm -rf "$travail/ENTREE"
    mkdir -p "$travail/ENTREE"
    cp "$travail"/OLBRIN_TT/*.txt "$travail/ENTREE/"
    octets=$(cat "$travail"/ENTREE/*.txt | wc -c)
    jetons=$(cat "$travail"/ENTREE/*.txt | grep -o '<M \|<MC \|<PC ' | wc -l)
    secondes=()
    kio=0
    for essai in 1 2 3; do
        remettre "$travail/ENTREE"
        read -r s k < <(mesurer smn_aup "$n")
        secondes+=("$s")
        [ "$k" -gt "$kio" ] && kio=$k
    done
    e=$(empreinte)
    if [ -z "$ref_aup" ]; then ref_aup=$e; elif [ "$e" != "$ref_aup" ]; then memes=non; fi
    message_aup=$(cat /tmp/telvoris_bench_pa_sortie_$$)
    median=$(printf '%s\n' "${secondes[@]}" | sort -g | sed -n 2p)
    meilleur=$(printf '%s\n' "${secondes[@]}" | sort -g | head -1)
    {
        echo "$n fil(s) :"
        echo "  Composés (smn_cmp) : $octets_seg octets étiquetés en $s_cmp s" \
             "($(awk -v o="$octets_seg" -v s="$s_cmp" 'BEGIN{printf "%.1f", o/s/1e6}') Mo/s), $((k_cmp / 1024)) Mio au plus"
        echo "    $message_cmp"
        echo "  Passe automatique (smn_aup, chargement du dictionnaire compris) : $octets octets, $jetons jetons"
        echo "    meilleur : $meilleur s ($(awk -v o="$octets" -v s="$meilleur" 'BEGIN{printf "%.1f", o/s/1e6}') Mo/s)," \
             "médiane de 3 : $median s ($(awk -v o="$octets" -v s="$median" 'BEGIN{printf "%.1f", o/s/1e6}') Mo/s," \
             "$(awk -v j="$jetons" -v s="$median" 'BEGIN{printf "%.0f", j/s}') jetons/s)"
        echo "    mémoire résidente maximale : $((kio / 1024)) Mio"
        echo "$message_aup" | sed 's/^/    | /'
    } | tee -a "$resultat"
done
echo "Fichiers identiques d'un nombre de fils à l'autre : $memes" | tee -a "$resultat"
rm -f /tmp/telvoris_bench_pa_temps_$$ /tmp/telvoris_bench_pa_sortie_$$
rm -rf "$travail"
