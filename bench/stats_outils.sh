#!/usr/bin/env bash
# Benchmark of the statistics tools on the reproducible press corpus of bench/construire_corpus.py
# (about 10 million tokens at 57 MB): "Séquences de mots" over the whole corpus, "Spécificités" of
# a 100,000-item lexicon against a 300,000-item reference (synthetic, deterministic), Jaccard and
# Labbé over a list of 300 texts (the corpus's texts, repeated up to 300 entries), and
# "Statistiques par pos" by journal.
# Usage: bench/stats_outils.sh [MB of raw text, default 57]
# Reports wall time, throughput and peak resident memory of each command.
set -euo pipefail
cd "$(dirname "$0")/.."
mo="${1:-57}"
if [ -n "${TELVORIS:-}" ]; then
    exe="$TELVORIS"
else
    . scripts/preparer.sh
    exe=build/telvoris
fi
# The lists of the sequences come from the authored resources, turned into the tree's encoding.
res=bench/corpus/morv_res_outils/MORVENTA/morv_res
if [ ! -f "$res/utilitaires/outils_3.txt" ]; then
    python3 tools/assembler_ressources.py resources "$res" >/dev/null
    cp -rn tests/fixtures/MORVENTA/morv_res/. "$res/"
fi
corpus="bench/corpus/stats_${mo}mo"
if [ ! -f "$corpus/REPERTOIRE.txt" ]; then
    bash bench/construire_corpus.sh --mo "$mo" "$corpus"
fi
if [ ! -d "$corpus/OLBRIN_TT/LEXINDEX" ]; then
    "$exe" smn_seg --ressources "$res" -r "$corpus/REPERTOIRE.txt" >/dev/null
fi
horloge="2026-11-21 12:00:00"
jetons=$(for f in "$corpus"/OLBRIN_TT/NB_PARTITIONS/*.txt; do cat "$f"; echo; done | awk '{s+=$1} END {print s}')
octets=$(cat "$corpus"/OLBRIN_TT/*.txt | wc -c)
mkdir -p bench/resultats
sortie=bench/resultats/stats_outils_${mo}mo.txt
mesurer() {  # label, unit count, unit name, then the command
    local label="$1" n="$2" unite="$3"; shift 3
    /usr/bin/time -v -o "$sortie.time" "$@" >/dev/null
    local s cpu kio
    s=$(grep 'Elapsed (wall clock)' "$sortie.time" | awk '{print $NF}' | awk -F: '{ if (NF==3) print $1*3600+$2*60+$3; else print $1*60+$2 }')
    cpu=$(grep -E '(User|System) time' "$sortie.time" | awk '{s+=$NF} END {print s}')
    kio=$(grep 'Maximum resident set size' "$sortie.time" | awk '{print $NF}')
    python3 - "$label" "$n" "$unite" "$s" "$cpu" "$kio" <<'PY'
import sys
label, n, unite, s, cpu, kio = sys.argv[1], float(sys.argv[2]), sys.argv[3], float(sys.argv[4]), float(sys.argv[5]), int(sys.argv[6])
# On a shared machine the processor time says more than the wall time.
print(f"{label} : {s:.2f} s ({cpu:.2f} s de processeur), {n/max(cpu, 1e-3):,.0f} {unite}/s de processeur, "
      f"mémoire maximale {kio/1024:.0f} Mio")
PY
}
{
echo "corpus : $corpus, $jetons jetons, $octets octets de texte étiqueté"
if [ ! -f "$corpus/LEXIQUES/FORMES_MIN_261121_1200.txt" ]; then
    "$exe" smn_lx --ressources "$res" --horloge "$horloge" -r 0 -r N -r N -r N -r "$corpus/REPERTOIRE.txt" >/dev/null
fi
if [ ! -d "$corpus/LEXIQUES_MULTIPLES" ]; then
    "$exe" smn_lexm --ressources "$res" --horloge "$horloge" -r 0 -r "$corpus/REPERTOIRE.txt" >/dev/null
fi
mesurer "Séquences de mots (seuil 5)" "$jetons" jetons "$exe" smn_sgr --ressources "$res" --horloge "$horloge" \
    -r 5 -r N -r "$corpus/LEXIQUES/FORMES_MIN_261121_1200.txt" -r "$corpus/REPERTOIRE.txt"
echo "  lignes de SEG_REP : $(wc -l < "$corpus/LEXIQUES/SEG_REP_261121_1200.txt")"
python3 - "$corpus" <<'PY'
import sys
# Deterministic lexicons: a reference of 300,000 items and a sub-corpus of 100,000 of them.
lettres = 'abcdefghijklmnopqrstuvwxyz'
def item(i):
    i0, s = i, ''
    while True:
        s += lettres[i % 26]; i //= 26
        if i == 0: break
    # Lengths from 2 to 15 and more, so that the items spread over the buckets as words do.
    return s + 'x' * (i0 % 14)
with open(sys.argv[1] + '/SPEC_REF.txt', 'wb') as f:
    f.write(''.join(f'{item(i)}\t{1 + 3000000 // (i + 1)}\r\n' for i in range(300000)).encode('cp1252'))
with open(sys.argv[1] + '/SPEC_SOUS.txt', 'wb') as f:
    f.write(''.join(f'{item(i * 3)}\t{1 + 1000000 // (i + 1)}\r\n' for i in range(100000)).encode('cp1252'))
PY
mesurer "Spécificités 100 000 contre 300 000 items" 100000 items "$exe" smn_sepc --ressources "$res" --horloge "$horloge" \
    -r "$corpus/SPEC_REF.txt" -r T -r "$corpus/SPEC_SOUS.txt" -r T
awk 'NF' "$corpus/REPERTOIRE.txt" > "$corpus/REPERTOIRE_300.txt"
while [ "$(wc -l < "$corpus/REPERTOIRE_300.txt")" -lt 300 ]; do
    awk 'NF' "$corpus/REPERTOIRE.txt" >> "$corpus/REPERTOIRE_300.txt"
done
head -n 300 "$corpus/REPERTOIRE_300.txt" > "$corpus/REPERTOIRE_300.tmp" && mv "$corpus/REPERTOIRE_300.tmp" "$corpus/REPERTOIRE_300.txt"
mesurer "Distance Jaccard, 300 textes (44 850 paires)" 44850 paires "$exe" smn_disja --ressources "$res" -r M -r F -r "$corpus/REPERTOIRE_300.txt"
mesurer "Distance Labbé, 300 textes (44 850 paires)" 44850 paires "$exe" smn_lab --ressources "$res" -r M -r F -r "$corpus/REPERTOIRE_300.txt"
mesurer "Statistiques par pos (par JOURNAL)" "$octets" octets "$exe" smn_stapos --ressources "$res" -r "$corpus/REPERTOIRE.txt" -r JOURNAL
} | tee "$sortie"
