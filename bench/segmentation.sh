#!/usr/bin/env bash
# Benchmark of segmentation and indexing (the "&Segmentation" operation) on a reproducible
# press corpus built from Debian's French documentation. Usage: bench/segmentation.sh [MB]
# Reports MB/s of raw text (1 MB = 1,000,000 bytes) and the peak resident memory.
set -euo pipefail
cd "$(dirname "$0")/.."
mo="${1:-100}"
. scripts/preparer.sh
corpus="bench/corpus/presse_${mo}mo"
if [ ! -f "$corpus/REPERTOIRE.txt" ]; then
    bash bench/construire_corpus.sh --mo "$mo" "$corpus"
fi
rm -rf "$corpus/OLBRIN_TT"
octets=$(cat "$corpus"/ARCHIVE_BRUT/*.txt | wc -c)
mkdir -p bench/resultats
mesure=bench/resultats/segmentation_${mo}mo.txt
/usr/bin/time -v -o "$mesure.time" build/telvoris smn_seg --ressources tests/fixtures/MORVENTA/morv_res \
    --reponse "$corpus/REPERTOIRE.txt" >/dev/null
secondes=$(grep 'Elapsed (wall clock)' "$mesure.time" | awk '{print $NF}' | awk -F: '{ if (NF==3) print $1*3600+$2*60+$3; else print $1*60+$2 }')
kio=$(grep 'Maximum resident set size' "$mesure.time" | awk '{print $NF}')
python3 - "$octets" "$secondes" "$kio" <<'PY' | tee "$mesure"
import sys
octets, secondes, kio = int(sys.argv[1]), float(sys.argv[2]), int(sys.argv[3])
print(f"texte brut : {octets/1e6:.1f} Mo")
print(f"durée (segmentation + indexation, un cœur) : {secondes:.2f} s")
print(f"débit : {octets/1e6/secondes:.1f} Mo/s")
print(f"mémoire maximale : {kio/1024:.0f} Mio")
PY
