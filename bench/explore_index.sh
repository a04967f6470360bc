#!/usr/bin/env bash
# Benchmark of the exploration index builder (Form1.smn_idx) against SQLite FTS5, in one run.
# Usage: bash bench/explore_index.sh [BUILD-FOLDER or telvoris executable] [CORPUS-FOLDER]
#   defaults: build, bench/corpus/explore_57mo (built by construire_corpus.sh --mo 57 when absent,
#   then segmented). The corpus folder gets its index REPERTOIRE_QORX_INDEX rewritten: use a copy.
#
# Four builds of the same corpus, each three times, interleaved so that a change of the machine's
# load hits all of them alike, with `sync` (not timed) before each:
#   - FTS5: python3's sqlite3 indexes the same raw texts, one row per text, into a file;
#   - in place: our index built over the existing one (answers N, the list, O), the case of a
#     corpus indexed again: its files are written over, what the new tree lacks is removed;
#   - fresh: built into a new, empty index folder (see below);
#   - memory: a fresh build in /dev/shm, where no disk is involved.
# It prints the best and median of each, their peak memory, and the ratios of the best times to
# FTS5's best, then a query timed on the disk index (the concordance of a form of about 2,000
# occurrences, less the opening of the corpus).
#
# A fresh build is a corpus indexed for the first time: each of the three goes into a new index
# folder of its own (a copy of the list, REPERTOIRE_NEUF<i>.txt, names it), and nothing is deleted
# on the disk before or between them; the three trees are removed at the end. The reason: this
# machine's ext4 root has no journal, and there the kernel steps over every inode freed in the last
# minutes at each file creation (perf: ext4_create -> recently_deleted), so a build made just after
# an `rm -rf` of 80,000 files costs 15-25 s of kernel time, whatever the program. Deleting the old
# tree first would measure that, not the builder. Wait eight minutes after a run that deleted
# many files (this script deletes its trees at the end) before timing again: a fresh build made
# 5 minutes after the deletion of 240,000 files still took 7.8 s of kernel time, one made 8
# minutes after it 2.2 s. The pages of each fresh tree are released
# from the cache once it is on disk: kept, they would leave the next build only memory this
# virtual machine has never used, which costs some 2 s per GB written (liberer_pages.py).
set -euo pipefail
cd "$(dirname "$0")/.."
cible="${1:-build}"
corpus="${2:-bench/corpus/explore_57mo}"
if [ -d "$cible" ]; then exe="$(cd "$cible" && pwd)/telvoris"; else exe="$(cd "$(dirname "$cible")" && pwd)/$(basename "$cible")"; fi
[ -x "$exe" ] || { echo "Exécutable introuvable : $exe" >&2; exit 2; }
ress="$(pwd)/tests/fixtures/MORVENTA/morv_res"
if [ ! -f "$corpus/REPERTOIRE.txt" ]; then
    bash bench/construire_corpus.sh --mo 57 "$corpus" >/dev/null
fi
corpus="$(cd "$corpus" && pwd)"
if [ ! -d "$corpus/OLBRIN_TT/NB_PARTITIONS" ]; then
    echo "Segmentation du corpus de mesure..." >&2
    "$exe" smn_seg --ressources "$ress" -r "$corpus/REPERTOIRE.txt" >/dev/null
fi
jetons=$(for f in "$corpus"/OLBRIN_TT/NB_PARTITIONS/*.txt; do cat "$f"; echo; done | tr -d '\r' | awk '{s+=$1} END {print s}')
mkdir -p bench/resultats
mesure="$(pwd)/bench/resultats/explore_index"
index="$corpus/REPERTOIRE_QORX_INDEX"

memoire="/dev/shm/telvoris_explore_$$"
fts5="$corpus/fts5_$$.sqlite"
trap 'rm -rf "$memoire" "$fts5"* "$corpus"/REPERTOIRE_NEUF[123].txt "$corpus"/REPERTOIRE_NEUF[123]_QORX_INDEX' EXIT
mkdir -p "$memoire/OLBRIN_TT"
cp "$corpus/REPERTOIRE.txt" "$memoire/"
for d in NB_PARTITIONS TEXTE_ETIQ LEXINDEX TEXTE_NU; do cp -r "$corpus/OLBRIN_TT/$d" "$memoire/OLBRIN_TT/"; done

indexer() {  # $1: timing file, $2: list file, then the answers
    local fichier="$1" liste="$2"
    shift 2
    /usr/bin/time -v -o "$fichier" "$exe" Form1.smn_idx --ressources "$ress" -r N -r "$liste" "$@" >/dev/null
}
# The in-place build needs an index to write over.
[ -f "$index/controle.txt" ] || indexer "$mesure.preparation.time" "$corpus/REPERTOIRE.txt" -r O
for i in 1 2 3; do
    sync
    /usr/bin/time -v -o "$mesure.fts5.$i.time" python3 bench/fts5_index.py "$corpus/REPERTOIRE.txt" "$fts5" >/dev/null
    sync
    indexer "$mesure.sur_place.$i.time" "$corpus/REPERTOIRE.txt" -r O
    rm -rf "$corpus/REPERTOIRE_NEUF${i}_QORX_INDEX"
    cp "$corpus/REPERTOIRE.txt" "$corpus/REPERTOIRE_NEUF$i.txt"
    sync
    indexer "$mesure.neuf.$i.time" "$corpus/REPERTOIRE_NEUF$i.txt"
    # Its pages go back to the free lists once on disk, so that the next fresh build writes into
    # memory used before, as a build after a deletion would (see liberer_pages.py).
    sync
    python3 bench/liberer_pages.py "$corpus/REPERTOIRE_NEUF${i}_QORX_INDEX" >/dev/null
    rm -rf "$memoire/REPERTOIRE_QORX_INDEX"
    sync
    indexer "$mesure.memoire.$i.time" "$memoire/REPERTOIRE.txt"
done
fts5_taille=$(du -k "$fts5" | cut -f1)
index_taille=$(du -sk "$index" | cut -f1)
index_fichiers=$(find "$index" -type f | wc -l)

# The form whose count is the highest at or below 2,000, and an absent one for the opening alone.
# awk reads to the end: leaving early would stop tr on a broken pipe, which pipefail makes fatal.
sync
forme=$(tr -d '\r' < "$index/DICTIONNAIRES/FREQUENTIEL_FORMES.txt" | awk -F'\t' '!vu && $1 <= 2000 { print $2; vu = 1 }' \
    | iconv -f CP1252 -t UTF-8)
for i in 1 2 3; do
    /usr/bin/time -v -o "$mesure.requete.$i.time" "$exe" requete "$corpus/REPERTOIRE.txt" --forme "$forme" \
        --concordance > "$mesure.requete.txt"
    /usr/bin/time -v -o "$mesure.ouverture.$i.time" "$exe" requete "$corpus/REPERTOIRE.txt" --forme zzzqqq \
        --concordance >/dev/null
done
lignes=$(awk 'NR > 4 && length($0) > 100' "$mesure.requete.txt" | wc -l)

python3 - "$mesure" "$jetons" "$forme" "$lignes" "$fts5_taille" "$index_taille" "$index_fichiers" <<'PY' | tee "$mesure.txt"
import re, statistics, sys
mesure, jetons, forme, lignes = sys.argv[1], int(sys.argv[2]), sys.argv[3], int(sys.argv[4])
fts5_taille, index_taille, index_fichiers = int(sys.argv[5]), int(sys.argv[6]), int(sys.argv[7])
def lire(nom):
    t = open(f"{mesure}.{nom}.time", errors="replace").read()
    h = re.search(r"Elapsed \(wall clock\) time.*: (.*)", t).group(1).split(":")
    s = sum(float(x) * 60 ** (len(h) - 1 - k) for k, x in enumerate(h))
    u = float(re.search(r"User time \(seconds\): (.*)", t).group(1))
    k = float(re.search(r"System time \(seconds\): (.*)", t).group(1))
    return s, u, k, int(re.search(r"Maximum resident set size \(kbytes\): (\d+)", t).group(1))
print(f"corpus : {jetons:,} jetons ; notre index {index_taille / 1024:.0f} Mio en {index_fichiers} fichiers, "
      f"FTS5 {fts5_taille / 1024:.0f} Mio".replace(",", " "))
series = (("fts5", "SQLite FTS5 (une ligne par texte)"), ("sur_place", "index réécrit sur place"),
          ("neuf", "index neuf (dossier neuf, rien supprimé avant)"), ("memoire", "index neuf en mémoire (/dev/shm)"))
meilleurs = {}
for cle, nom in series:
    r = [lire(f"{cle}.{i}") for i in (1, 2, 3)]
    b = min(r, key=lambda x: x[0])
    meilleurs[cle] = b[0]
    print(f"{nom} : meilleur {b[0]:.2f} s ({b[1]:.2f} u, {b[2]:.2f} sys), médiane {statistics.median(x[0] for x in r):.2f} s, "
          f"{jetons / b[0] / 1e6:.2f} M jetons/s ; mémoire maximale {max(x[3] for x in r) / 1024:.0f} Mio")
f = meilleurs["fts5"]
print("rapports à FTS5 (meilleur de 3) : " + " ; ".join(
    f"{nom} {meilleurs[cle] / f:.2f}" for cle, nom in (("sur_place", "sur place"), ("neuf", "neuf"), ("memoire", "mémoire"))))
r = statistics.median(lire(f"requete.{i}")[0] for i in (1, 2, 3))
o = statistics.median(lire(f"ouverture.{i}")[0] for i in (1, 2, 3))
print(f"requête --forme {forme} --concordance ({lignes} lignes) sur disque : médiane {r * 1000:.0f} ms, ouverture seule "
      f"{o * 1000:.0f} ms, requête moins ouverture {(r - o) * 1000:.0f} ms")
PY
