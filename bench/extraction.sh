#!/usr/bin/env bash
# Benchmark of the five extraction functions on the reproducible press corpus (segmented first,
# once). Usage: bench/extraction.sh [MB]
# Each command runs once over the whole corpus with a frequent key ("paquet", found in many
# sentences and documents); reports seconds, MB/s of raw text (1 MB = 1,000,000 bytes), MB/s of
# the bytes it reads (tagged text, or TEXTE_MIN for the count) and peak resident memory.
set -euo pipefail
cd "$(dirname "$0")/.."
mo="${1:-100}"
. scripts/preparer.sh
corpus="bench/corpus/presse_${mo}mo"
if [ ! -f "$corpus/REPERTOIRE.txt" ]; then
    bash bench/construire_corpus.sh --mo "$mo" "$corpus"
fi
if [ ! -d "$corpus/OLBRIN_TT/TEXTE_MIN" ]; then
    build/telvoris smn_seg --reponse "$corpus/REPERTOIRE.txt" >/dev/null
fi
brut=$(cat "$corpus"/ARCHIVE_BRUT/*.txt | wc -c)
etiquete=$(cat "$corpus"/OLBRIN_TT/*.txt | wc -c)
minuscule=$(cat "$corpus"/OLBRIN_TT/TEXTE_MIN/*.txt | wc -c)
mkdir -p bench/resultats
resultat=bench/resultats/extraction_${mo}mo.txt
: > "$resultat"
liste="$corpus/REPERTOIRE.txt"
horloge="2026-01-01 00:00:00"

mesurer() {  # $1: label, $2: bytes read, then the command's arguments
    local libelle=$1 lus=$2
    shift 2
    rm -rf "$corpus/EXTRAITS" "$corpus/EXTRAITS_2" "$corpus/EXTRAITS_DOCS" "$corpus/REPERAGES"
    /usr/bin/time -v -o /tmp/telvoris_bench_extraction build/telvoris "$@" --horloge "$horloge" >/dev/null
    local s k
    s=$(grep 'Elapsed (wall clock)' /tmp/telvoris_bench_extraction | awk '{print $NF}' |
        awk -F: '{ if (NF==3) print $1*3600+$2*60+$3; else print $1*60+$2 }')
    k=$(grep 'Maximum resident set size' /tmp/telvoris_bench_extraction | awk '{print $NF}')
    python3 -c "
import sys
l, s, k, brut, lus = sys.argv[1], max(float(sys.argv[2]), 0.01), int(sys.argv[3]), int(sys.argv[4]), int(sys.argv[5])
print(f'{l} : {s:.2f} s ; {brut/1e6/s:.1f} Mo/s de texte brut, {lus/1e6/s:.1f} Mo/s lus ; mémoire maximale {k/1024:.0f} Mio')
" "$libelle" "$s" "$k" "$brut" "$lus" | tee -a "$resultat"
}

mesurer "Extraire phrases (CH)" "$etiquete" smn_ext -r CH -r paquet -r "$liste"
mesurer "Extraire phrases (LI)" "$etiquete" smn_ext -r LI -r paquet -r "$liste"
mesurer "Extraire §" "$etiquete" smn_ext2 -r CH -r paquet -r "$liste"
mesurer "Extraire Documents" "$minuscule" smn_extd -r paquet -r NON -r NON -r "" -r "$liste"
mesurer "Extraire phrases sur expressions" "$etiquete" smn_extrexpr -r "$liste"
mesurer "Quantifier occurrences" "$minuscule" Form1.smn_qtoc -r "$liste" -r paquet -r NON
