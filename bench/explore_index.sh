#!/usr/bin/env bash
# Benchmark of the exploration: the index builder (Form1.smn_idx) on a reproducible corpus of
# about 10 million tokens, then a form query whose concordance has about 2,000 lines, from the
# terminal. Usage: bench/explore_index.sh [MB of raw text, 57 by default]
# BUILD names the build folder (build by default; it is built when BUILD is not given).
# The index is built three times on disk and three times in memory (/dev/shm), since the build
# creates some 80,000 small files and the disk's share of the time varies with the machine's
# load. Reports tokens/s, the query time less the opening of the corpus (an absent form measured
# the same way), and the peak resident memory of each. SQLite FTS5 (python3's sqlite3) indexes
# the same raw texts, one row per text, three times into a file beside the corpus: the line
# "rapports" gives our builds on disk and in memory against its best time.
set -euo pipefail
cd "$(dirname "$0")/.."
mo="${1:-57}"
if [ -z "${BUILD:-}" ]; then
    . scripts/preparer.sh
    BUILD=build
fi
exe="$(pwd)/$BUILD/telvoris"
ress="$(pwd)/tests/fixtures/MORVENTA/morv_res"
corpus="bench/corpus/explore_${mo}mo"
if [ ! -f "$corpus/REPERTOIRE.txt" ]; then
    bash bench/construire_corpus.sh --mo "$mo" "$corpus" >/dev/null
fi
if [ ! -d "$corpus/OLBRIN_TT/NB_PARTITIONS" ]; then
    echo "Segmentation du corpus de mesure..." >&2
    "$exe" smn_seg --ressources "$ress" -r "$corpus/REPERTOIRE.txt" >/dev/null
fi
jetons=$(for f in "$corpus"/OLBRIN_TT/NB_PARTITIONS/*.txt; do cat "$f"; echo; done | tr -d '\r' | awk '{s+=$1} END {print s}')
mkdir -p bench/resultats
mesure="$(pwd)/bench/resultats/explore_${mo}mo"

memoire="/dev/shm/telvoris_explore_$$"
trap 'rm -rf "$memoire"' EXIT
mkdir -p "$memoire/OLBRIN_TT"
cp "$corpus/REPERTOIRE.txt" "$memoire/"
for d in NB_PARTITIONS TEXTE_ETIQ LEXINDEX TEXTE_NU; do cp -r "$corpus/OLBRIN_TT/$d" "$memoire/OLBRIN_TT/"; done

mesurer() {  # $1: corpus folder, $2: label
    local racine="$1" lieu="$2"
    local index="$racine/REPERTOIRE_QORX_INDEX"
    for i in 1 2 3; do
        rm -rf "$index"  # the build alone: destroying an old tree is not timed
        /usr/bin/time -v -o "$mesure.$lieu.index$i.time" "$exe" Form1.smn_idx --ressources "$ress" \
            -r N -r "$racine/REPERTOIRE.txt" >/dev/null
    done
    sync  # the queries do not compete with the writing back of the new tree
    # The form whose count is the highest at or below 2,000, and an absent one for the opening alone.
    forme=$(tr -d '\r' < "$index/DICTIONNAIRES/FREQUENTIEL_FORMES.txt" | awk -F'\t' '$1 <= 2000 { print $2; exit }' \
        | iconv -f CP1252 -t UTF-8)
    for i in 1 2 3 4 5; do
        /usr/bin/time -v -o "$mesure.$lieu.requete$i.time" "$exe" requete "$racine/REPERTOIRE.txt" --forme "$forme" \
            --concordance > "$mesure.requete.txt"
        /usr/bin/time -v -o "$mesure.$lieu.ouverture$i.time" "$exe" requete "$racine/REPERTOIRE.txt" --forme zzzqqq \
            --concordance >/dev/null
    done
}
mesurer "$corpus" disque
mesurer "$memoire" memoire
for i in 1 2 3; do
    /usr/bin/time -v -o "$mesure.fts5$i.time" python3 bench/fts5_index.py "$corpus/REPERTOIRE.txt" "$corpus/fts5.sqlite" >/dev/null
done
fts5_taille=$(du -k "$corpus/fts5.sqlite" | cut -f1)
index_taille=$(du -sk "$corpus/REPERTOIRE_QORX_INDEX" | cut -f1)
index_fichiers=$(find "$corpus/REPERTOIRE_QORX_INDEX" -type f | wc -l)
rm -f "$corpus/fts5.sqlite"
lignes=$(awk 'NR > 4 && length($0) > 100' "$mesure.requete.txt" | wc -l)

python3 - "$mesure" "$jetons" "$forme" "$lignes" "$fts5_taille" "$index_taille" "$index_fichiers" <<'PY' | tee "$mesure.txt"
import re, statistics, sys
mesure, jetons, forme, lignes = sys.argv[1], int(sys.argv[2]), sys.argv[3], int(sys.argv[4])
fts5_taille, index_taille, index_fichiers = int(sys.argv[5]), int(sys.argv[6]), int(sys.argv[7])
def lire(nom):
    t = open(f"{mesure}.{nom}.time", errors="replace").read()
    h = re.search(r"Elapsed \(wall clock\) time.*: (.*)", t).group(1).split(":")
    s = sum(float(x) * 60 ** (len(h) - 1 - k) for k, x in enumerate(h))
    return s, int(re.search(r"Maximum resident set size \(kbytes\): (\d+)", t).group(1))
print(f"corpus : {jetons:,} jetons".replace(",", " "))
for lieu, nom in (("disque", "disque"), ("memoire", "mémoire (/dev/shm)")):
    idx = [lire(f"{lieu}.index{i}") for i in (1, 2, 3)]
    req = [lire(f"{lieu}.requete{i}") for i in range(1, 6)]
    ouv = [lire(f"{lieu}.ouverture{i}") for i in range(1, 6)]
    meilleur, mediane = min(s for s, _ in idx), statistics.median(s for s, _ in idx)
    print(f"{nom} : index (Form1.smn_idx) meilleur {meilleur:.2f} s ({jetons / meilleur / 1e6:.2f} M jetons/s), "
          f"médiane {mediane:.2f} s ({jetons / mediane / 1e6:.2f} M jetons/s) ; mémoire maximale "
          f"{max(m for _, m in idx) / 1024:.0f} Mio")
    r, o = statistics.median(s for s, _ in req), statistics.median(s for s, _ in ouv)
    print(f"{nom} : requête --forme {forme} --concordance ({lignes} lignes) : médiane {r * 1000:.0f} ms, ouverture "
          f"seule {o * 1000:.0f} ms, requête moins ouverture {(r - o) * 1000:.0f} ms ; mémoire maximale "
          f"{max(m for _, m in req) / 1024:.0f} Mio")
fts = [lire(f"fts5{i}") for i in (1, 2, 3)]
f = min(s for s, _ in fts)
d = min(lire(f"disque.index{i}")[0] for i in (1, 2, 3))
m = min(lire(f"memoire.index{i}")[0] for i in (1, 2, 3))
print(f"SQLite FTS5 (une ligne par texte) : meilleur {f:.2f} s, mémoire maximale {max(x for _, x in fts) / 1024:.0f} Mio, "
      f"{fts5_taille / 1024:.0f} Mio ; notre index {index_taille / 1024:.0f} Mio en {index_fichiers} fichiers")
print(f"rapports (meilleur de 3) : disque / FTS5 = {d / f:.2f} ; disque / mémoire = {d / m:.2f} ; mémoire / FTS5 = {m / f:.2f}")
PY
