#!/usr/bin/env bash
# Shares of settled, ambiguous and unknown word tokens that the tagging chain leaves on a corpus:
# the corpus's raw texts are copied into WORK_FOLDER (the corpus itself is never changed), then
# segmentation (smn_seg), compounds (smn_cmp) and the automatic pass (smn_aup) run on the copy,
# and tests/qualite/mesurer.py --corpus counts the tags. Usage:
#   bench/qualite_corpus.sh [BUILD_FOLDER] [CORPUS] [WORK_FOLDER]
# CORPUS (default exemples/presse) holds REPERTOIRE.txt and ARCHIVE_BRUT/; the 3 MB press corpus:
#   bash bench/construire_corpus.sh --mo 3 bench/corpus/presse_3mo
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build}"
source="${2:-exemples/presse}"
travail="${3:-/tmp/telvoris_qualite_corpus}"
if [ ! -f "$source/REPERTOIRE.txt" ] || [ ! -d "$source/ARCHIVE_BRUT" ]; then
    echo "Corpus introuvable : $source (REPERTOIRE.txt et ARCHIVE_BRUT/ attendus)" >&2
    exit 2
fi
arbre="$build/MORVENTA/morv_res"
rm -rf "$travail"
mkdir -p "$travail"
cp "$source/REPERTOIRE.txt" "$travail/"
cp -r "$source/ARCHIVE_BRUT" "$travail/"
for op in smn_seg smn_cmp smn_aup; do
    "$build/telvoris" "$op" --ressources "$arbre" -r "$travail/REPERTOIRE.txt" > /dev/null
done
python3 tests/qualite/mesurer.py --corpus "$travail/OLBRIN_TT"
rm -rf "$travail"
