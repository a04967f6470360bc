#!/usr/bin/env bash
# Benchmark of segmentation and indexing (the "&Segmentation" operation, one thread) on a
# reproducible press corpus built from Debian's French documentation. Usage:
#   bench/segmentation.sh [MB]
# The operation writes about eleven times the raw text (tagged text and seven derived files), so
# it is measured twice: on the disk of the corpus folder, and on a memory file system
# (/dev/shm), which shows the program's own cost without the disk's. Each run writes its files
# anew, as a first segmentation does. Reports MB/s of raw text (1 MB = 1,000,000 bytes) and the
# peak resident memory, best and median of three runs. The resource tree is the one built beside
# the executable (build/MORVENTA/morv_res, with the full generated dictionary).
set -euo pipefail
cd "$(dirname "$0")/.."
mo="${1:-100}"
. scripts/preparer.sh
corpus="bench/corpus/presse_${mo}mo"
if [ ! -f "$corpus/REPERTOIRE.txt" ]; then
    bash bench/construire_corpus.sh --mo "$mo" "$corpus"
fi
octets=$(cat "$corpus"/ARCHIVE_BRUT/*.txt | wc -c)
mkdir -p bench/resultats
resultat=bench/resultats/segmentation_${mo}mo.txt
: > "$resultat"

mesurer() {  # $1: corpus folder, $2: label; three runs, best and median reported
    local secondes=() kio=0
    for essai in 1 2 3; do
        rm -rf "$1/OLBRIN_TT"
        sync
        /usr/bin/time -v -o /tmp/telvoris_bench_time build/telvoris smn_seg \
            --reponse "$1/REPERTOIRE.txt" >/dev/null
        secondes+=("$(grep 'Elapsed (wall clock)' /tmp/telvoris_bench_time | awk '{print $NF}' |
            awk -F: '{ if (NF==3) print $1*3600+$2*60+$3; else print $1*60+$2 }')")
        local k
        k=$(grep 'Maximum resident set size' /tmp/telvoris_bench_time | awk '{print $NF}')
        [ "$k" -gt "$kio" ] && kio=$k
    done
    python3 - "$octets" "$kio" "$2" "${secondes[@]}" <<'PY' | tee -a "$resultat"
import sys
octets, kio, lieu = int(sys.argv[1]), int(sys.argv[2]), sys.argv[3]
temps = sorted(float(t) for t in sys.argv[4:])
mo = octets / 1e6
print(f"{lieu} : {mo:.1f} Mo de texte brut ; meilleur {temps[0]:.2f} s ({mo/temps[0]:.1f} Mo/s), "
      f"médiane {temps[len(temps)//2]:.2f} s ({mo/temps[len(temps)//2]:.1f} Mo/s) ; "
      f"mémoire maximale {kio/1024:.0f} Mio")
PY
}

mesurer "$corpus" "disque"
if [ -d /dev/shm ] && [ -w /dev/shm ]; then
    memoire=/dev/shm/telvoris_bench_$$
    rm -rf "$memoire"
    mkdir -p "$memoire"
    cp -r "$corpus/ARCHIVE_BRUT" "$corpus/REPERTOIRE.txt" "$memoire/"
    mesurer "$memoire" "mémoire (/dev/shm)"
    rm -rf "$memoire"
fi
