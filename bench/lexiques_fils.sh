#!/usr/bin/env bash
# Benchmark of the three lexicon surveys on one thread and on several, in one run: "Lexique"
# (smn_lx, level 0), "Grand lexique" (smn_tgl, level 0) and "Lexiques_multiples" (smn_lexm,
# level 0), each five times per thread count. Usage:
#   bench/lexiques_fils.sh [--fils "1 2"] [BUILD_FOLDER] [CORPUS] [WORK_FOLDER]
# CORPUS (default bench/corpus/stats_57mo) holds REPERTOIRE.txt and an indexed OLBRIN_TT (its
# LEXINDEX folder); it is only read: the surveys write into WORK_FOLDER (default
# /dev/shm/telvoris_lexiques_fils), which sees the corpus's OLBRIN_TT through a link.
# Throughput is the size of the index files read over the wall-clock time of the whole command
# (best and median of 5); peak resident memory is the largest of the 5. The script also says
# whether every thread count wrote the same files byte for byte.
set -euo pipefail
cd "$(dirname "$0")/.."
fils="1 2"
if [ "${1:-}" = "--fils" ]; then
    fils="$2"
    shift 2
fi
build="${1:-build}"
source="$(realpath "${2:-bench/corpus/stats_57mo}")"
travail="${3:-/dev/shm/telvoris_lexiques_fils}"
if [ ! -x "$build/telvoris" ]; then
    cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
    cmake --build "$build" -j2 --target telvoris
fi
if [ ! -f "$source/REPERTOIRE.txt" ] || [ ! -d "$source/OLBRIN_TT/LEXINDEX" ]; then
    echo "Corpus indexé introuvable : $source (REPERTOIRE.txt et OLBRIN_TT/LEXINDEX attendus ;" \
         "bash bench/stats_releves.sh 57 le construit)" >&2
    exit 2
fi
arbre=tests/fixtures/MORVENTA/morv_res
rm -rf "$travail"
mkdir -p "$travail"
cp "$source/REPERTOIRE.txt" "$travail/"
ln -s "$source/OLBRIN_TT" "$travail/OLBRIN_TT"
liste="$travail/REPERTOIRE.txt"
octets=$(cat "$source"/OLBRIN_TT/LEXINDEX/*.txt | wc -c)
textes=$(grep -c . "$liste" || true)

temps=/tmp/telvoris_bench_lxf_temps_$$
mesurer() {  # THREADS OPERATION ANSWERS... -> "seconds kio"
    local n="$1" op="$2"
    shift 2
    rm -rf "$travail/LEXIQUES" "$travail/LEXIQUES_MULTIPLES"
    local reponses=()
    for r in "$@"; do reponses+=(-r "$r"); done
    /usr/bin/time -f "%e %M" -o "$temps" "$build/telvoris" "$op" --fils "$n" --ressources "$arbre" \
        --horloge "2026-11-21 12:00:00" "${reponses[@]}" -r "$liste" >/dev/null
    cat "$temps"
}
empreinte() { (cd "$travail" && { find LEXIQUES LEXIQUES_MULTIPLES -type f -print0 2>/dev/null || true; } | sort -z | xargs -0 md5sum | md5sum | cut -c1-32); }

mkdir -p bench/resultats
resultat=bench/resultats/lexiques_fils.txt
echo "Relevés de lexique : $source, $textes textes, $octets octets d'index, $(nproc) cœurs," \
     "charge $(cut -d' ' -f1-3 /proc/loadavg), $(date -u '+%F %T') UTC" | tee "$resultat"
declare -A reference
memes=oui
for n in $fils; do
    echo "$n fil(s) :" | tee -a "$resultat"
    for cas in "smn_lx|Lexique|0 N N O" "smn_tgl|Grand lexique|0 N N" "smn_lexm|Lexiques_multiples|0"; do
        IFS='|' read -r op nom reponses <<<"$cas"
        secondes=()
        kio=0
        for essai in 1 2 3 4 5; do
            # shellcheck disable=SC2086
            read -r s k < <(mesurer "$n" "$op" $reponses)
            secondes+=("$s")
            [ "$k" -gt "$kio" ] && kio=$k
        done
        e=$(empreinte)
        if [ -z "${reference[$op]:-}" ]; then reference[$op]=$e; elif [ "$e" != "${reference[$op]}" ]; then memes=non; fi
        meilleur=$(printf '%s\n' "${secondes[@]}" | sort -g | head -1)
        median=$(printf '%s\n' "${secondes[@]}" | sort -g | sed -n 3p)
        echo "  $nom ($op) : meilleur $meilleur s" \
             "($(awk -v o="$octets" -v s="$meilleur" 'BEGIN{printf "%.0f", o/(s>0?s:0.01)/1e6}') Mo/s)," \
             "médiane de 5 $median s ($(awk -v o="$octets" -v s="$median" 'BEGIN{printf "%.0f", o/(s>0?s:0.01)/1e6}') Mo/s)," \
             "mémoire maximale $((kio / 1024)) Mio" | tee -a "$resultat"
    done
done
echo "Fichiers identiques d'un nombre de fils à l'autre : $memes" | tee -a "$resultat"
rm -f "$temps"
rm -rf "$travail"
