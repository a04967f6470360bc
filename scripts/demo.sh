#!/usr/bin/env bash
# Builds Telvoris and runs the main job on the bundled example corpus: segmentation and indexing
# of exemples/presse, worked on in a copy under build/.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/preparer.sh
rm -rf build/exemples/presse
mkdir -p build/exemples
cp -r exemples/presse build/exemples/presse
build/telvoris smn_seg --reponse build/exemples/presse/REPERTOIRE.txt
echo
echo "Corpus étiqueté : build/exemples/presse/OLBRIN_TT"
ls build/exemples/presse/OLBRIN_TT
# Statistics: the lexicon of the forms (panel: level 0, no sentence limit, no span; clitics
# apart), then the macro-distribution of the 30 most frequent forms by DATE (the whole date).
presse=build/exemples/presse
build/telvoris smn_lx --horloge "2026-11-21 10:00:00" \
    -r 0 -r N -r N -r N -r $presse/REPERTOIRE.txt
head -n 30 $presse/LEXIQUES/FORMES_MIN_261121_1000.txt > $presse/formes_frequentes.txt
build/telvoris smn_mac --horloge "2026-11-21 10:00:00" \
    -r 0 -r 2 -r 3 -r $presse/formes_frequentes.txt -r $presse/REPERTOIRE.txt -r DATE -r 1-10
echo
echo "Macro-distribution par DATE : $presse/AFC_MACRO/261121_1000"
iconv -f CP1252 -t UTF-8 $presse/AFC_MACRO/261121_1000/ECART_REDUIT.txt
