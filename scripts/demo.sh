#!/usr/bin/env bash
# Builds Telvoris and runs the main job on the bundled example corpus: segmentation and indexing
# of exemples/presse, worked on in a copy under build/.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/preparer.sh
rm -rf build/exemples/presse
mkdir -p build/exemples
cp -r exemples/presse build/exemples/presse
build/telvoris smn_seg --ressources tests/fixtures/MORVENTA/morv_res --reponse build/exemples/presse/REPERTOIRE.txt
echo
echo "Corpus étiqueté : build/exemples/presse/OLBRIN_TT"
ls build/exemples/presse/OLBRIN_TT
