#!/usr/bin/env bash
# Benchmark of segmentation and indexing (the "&Segmentation" operation) on one thread and on
# several, in one run, on a reproducible press corpus built from Debian's French documentation.
# Usage:
#   bench/segmentation.sh [--fils "1 2"] [BUILD_FOLDER] [CORPUS | MB]
# CORPUS is a folder with REPERTOIRE.txt and ARCHIVE_BRUT (default bench/corpus/presse_100mo);
# a number MB instead names bench/corpus/presse_<MB>mo, built when missing. The corpus is only
# read: its raw texts are copied into a work folder, so that it is never changed.
# The operation writes about eleven times the raw text (tagged text and seven derived files), so
# it is measured twice: on the disk of this worktree, and on a memory file system (/dev/shm),
# which shows the program's own cost without the disk's. Each run writes its files anew, as a
# first segmentation does. Reports, for each thread count, MB/s of raw text over wall time
# (1 MB = 1,000,000 bytes) and the peak resident memory, best and median of three runs, then
# whether every thread count left the same files byte for byte. The resource tree is the one
# built beside the executable (BUILD_FOLDER/MORVENTA/morv_res, the full generated dictionary).
set -euo pipefail
cd "$(dirname "$0")/.."
fils="1 2"
if [ "${1:-}" = "--fils" ]; then
    fils="$2"
    shift 2
fi
build="${1:-build}"
corpus="${2:-bench/corpus/presse_100mo}"
if [[ "$corpus" =~ ^[0-9]+$ ]]; then
    corpus="bench/corpus/presse_${corpus}mo"
    if [ ! -f "$corpus/REPERTOIRE.txt" ]; then
        bash bench/construire_corpus.sh --mo "${corpus//[^0-9]/}" "$corpus"
    fi
fi
if [ ! -x "$build/telvoris" ] || [ ! -f "$build/MORVENTA/morv_res/dico/olbrin/15t.txt" ]; then
    cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
    cmake --build "$build" -j2 --target telvoris ressources
fi
if [ ! -f "$corpus/REPERTOIRE.txt" ] || [ ! -d "$corpus/ARCHIVE_BRUT" ]; then
    echo "Corpus introuvable : $corpus (REPERTOIRE.txt et ARCHIVE_BRUT attendus)" >&2
    exit 2
fi
octets=$(cat "$corpus"/ARCHIVE_BRUT/*.txt | wc -c)
mkdir -p bench/resultats
resultat=bench/resultats/segmentation.txt
: > "$resultat"
echo "Segmentation et indexation (smn_seg) : $corpus, $(nproc) cœurs, charge $(cut -d' ' -f1-3 /proc/loadavg)" |
    tee -a "$resultat"

# The bytes of every file a run left, as one sum, to compare the thread counts.
empreinte() { (cd "$1/OLBRIN_TT" && find . -type f -print0 | sort -z | xargs -0 md5sum | md5sum | cut -c1-32); }

mesurer() {  # $1: work folder, $2: label, $3: threads; three runs, best and median reported
    local secondes=() kio=0 cpu=()
    for essai in 1 2 3; do
        # The tree of the run before is set aside, not deleted: on an ext4 without a journal,
        # inodes freed in the last minutes are stepped over one by one at each creation, which
        # would charge this run for the bench's own deletion of some 2,300 files, a cost that a
        # first segmentation does not meet. Once on disk, its pages are released from the cache,
        # so that this run writes into memory the machine has used before, as a run after a
        # deletion does (see liberer_pages.py: on this virtual machine, never-used memory costs
        # some 2 s per GB written). The trees set aside go at the end. A memory file system has
        # neither cost, and no room to spare: there they are deleted at once.
        if [[ "$1" == /dev/shm/* ]]; then
            rm -rf "$1/OLBRIN_TT"
            sync
        elif [ -d "$1/OLBRIN_TT" ]; then
            mkdir -p "$1/.precedents"
            local ancien
            ancien="$1/.precedents/$(date +%s%N)"
            mv "$1/OLBRIN_TT" "$ancien"
            sync
            python3 bench/liberer_pages.py "$ancien" >/dev/null
        else
            sync
        fi
        /usr/bin/time -f "%e %M %U %S" -o /tmp/telvoris_bench_seg_$$ "$build/telvoris" smn_seg --fils "$3" \
            --reponse "$1/REPERTOIRE.txt" >/dev/null
        local s k u y
        read -r s k u y < /tmp/telvoris_bench_seg_$$
        secondes+=("$s")
        cpu+=("$(python3 -c "print($u + $y)")")
        [ "$k" -gt "$kio" ] && kio=$k
    done
    python3 - "$octets" "$kio" "$2" "$3" "${cpu[*]}" "${secondes[@]}" <<'PY' | tee -a "$resultat"
import sys
octets, kio, lieu, fils = int(sys.argv[1]), int(sys.argv[2]), sys.argv[3], sys.argv[4]
# Processor time (user + system) tells the program's own cost when the machine is shared.
processeur = sorted(float(t) for t in sys.argv[5].split())
temps = sorted(float(t) for t in sys.argv[6:])
mo = octets / 1e6
med = temps[len(temps) // 2]
print(f"  {lieu}, {fils} fil(s) : {mo:.1f} Mo de texte brut ; meilleur {temps[0]:.2f} s ({mo/temps[0]:.1f} Mo/s), "
      f"médiane {med:.2f} s ({mo/med:.1f} Mo/s) ; mémoire maximale {kio/1024:.0f} Mio ; "
      f"temps processeur médian {processeur[len(processeur) // 2]:.2f} s")
PY
}

comparer() {  # $1: work folder, $2: label
    local premiere="" memes=oui
    for n in $fils; do
        mesurer "$1" "$2" "$n"
        local e
        e=$(empreinte "$1")
        if [ -z "$premiere" ]; then premiere=$e; elif [ "$e" != "$premiere" ]; then memes=non; fi
    done
    echo "  $2 : fichiers identiques d'un nombre de fils à l'autre : $memes" | tee -a "$resultat"
}

disque=bench/corpus/travail_segmentation
rm -rf "$disque"
mkdir -p "$disque"
cp -r "$corpus/ARCHIVE_BRUT" "$corpus/REPERTOIRE.txt" "$disque/"
comparer "$disque" "disque"
rm -rf "$disque"
if [ -d /dev/shm ] && [ -w /dev/shm ]; then
    memoire=/dev/shm/telvoris_bench_seg_$$
    rm -rf "$memoire"
    mkdir -p "$memoire"
    cp -r "$corpus/ARCHIVE_BRUT" "$corpus/REPERTOIRE.txt" "$memoire/"
    comparer "$memoire" "mémoire (/dev/shm)"
    rm -rf "$memoire"
fi
rm -f /tmp/telvoris_bench_seg_$$
