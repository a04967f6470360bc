#!/usr/bin/env bash
# Benchmark of the press import ("Europresse", smn_eur) on a reproducible download of N articles
# (default 10,000) built by bench/construire_telechargement.py. Usage:
#   bench/import_presse.sh [N]          (TELVORIS=chemin/telvoris to use another build)
# Reports the time of the whole import (cutting, then regrouping), the throughput on the
# downloaded bytes, the articles per second and the peak resident memory.
set -euo pipefail
cd "$(dirname "$0")/.."
articles="${1:-10000}"
telvoris="${TELVORIS:-build/telvoris}"
if [ ! -x "$telvoris" ]; then
    cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
    cmake --build build -j1 --target telvoris
    telvoris=build/telvoris
fi
corpus="bench/corpus/telechargement_${articles}"
if [ ! -d "$corpus/ARCHIVE" ]; then
    python3 bench/construire_telechargement.py --articles "$articles" "$corpus"
fi
# Each run starts from empty work folders: the import extends day files that already stand.
rm -rf "$corpus/ARTICLES" "$corpus/ARCHIVE_BRUT"
mkdir -p "$corpus/ARTICLES" "$corpus/ARCHIVE_BRUT"
octets=$(cat "$corpus"/ARCHIVE/*/*.txt | wc -c)
mkdir -p bench/resultats
mesure=bench/resultats/import_presse_${articles}.txt
/usr/bin/time -v -o "$mesure.time" "$telvoris" smn_eur --ressources tests/fixtures/europresse/morv_res \
    --reponse "$corpus/REPERTOIRE.txt" >/dev/null
secondes=$(grep 'Elapsed (wall clock)' "$mesure.time" | awk '{print $NF}' | awk -F: '{ if (NF==3) print $1*3600+$2*60+$3; else print $1*60+$2 }')
kio=$(grep 'Maximum resident set size' "$mesure.time" | awk '{print $NF}')
jours=$(ls "$corpus/ARCHIVE_BRUT" | wc -l)
python3 - "$octets" "$secondes" "$kio" "$articles" "$jours" <<'PY' | tee "$mesure"
import sys
octets, secondes, kio, articles, jours = int(sys.argv[1]), float(sys.argv[2]), int(sys.argv[3]), int(sys.argv[4]), int(sys.argv[5])
secondes = max(secondes, 0.01)
print(f"téléchargement : {articles} articles, {octets/1e6:.1f} Mo ; {jours} fichiers journal-jour écrits")
print(f"durée (découpage + regroupement, un cœur) : {secondes:.2f} s")
print(f"débit : {octets/1e6/secondes:.1f} Mo/s, {articles/secondes:.0f} articles/s")
print(f"mémoire maximale : {kio/1024:.0f} Mio")
PY
