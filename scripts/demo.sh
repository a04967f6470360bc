#!/usr/bin/env bash
# Builds Telvoris and runs the main job on the bundled example corpus (exemples/presse, worked on
# in a copy under build/): segmentation and indexing, compounds, the automatic tagging pass,
# re-indexing, the lexicon of forms, the macro-distribution of the most frequent forms by date,
# its correspondence analysis and a projection file for the map.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/preparer.sh
presse=build/exemples/presse
horloge="2026-11-21 10:00:00"
rm -rf "$presse"
mkdir -p build/exemples
cp -r exemples/presse "$presse"

build/telvoris smn_seg --reponse $presse/REPERTOIRE.txt
build/telvoris smn_cmp --reponse $presse/REPERTOIRE.txt
build/telvoris smn_aup --reponse $presse/REPERTOIRE.txt
build/telvoris smn_idx --reponse $presse/REPERTOIRE.txt
echo
echo "Corpus étiqueté : $presse/OLBRIN_TT"
grep -m 3 -v QORX_ATTR $presse/OLBRIN_TT/LE_MATIN_DU_SUD_2024-03-02.txt | iconv -f CP1252 -t UTF-8 | cut -c1-300
echo

# The lexicon of the forms (panel: level 0, no sentence limit, no span; clitics apart), then the
# macro-distribution of the 30 most frequent forms by date.
build/telvoris smn_lx --horloge "$horloge" -r 0 -r N -r N -r N -r $presse/REPERTOIRE.txt
head -n 30 $presse/LEXIQUES/FORMES_MIN_261121_1000.txt > $presse/formes_frequentes.txt
build/telvoris smn_mac --horloge "$horloge" \
    -r 0 -r 2 -r 3 -r $presse/formes_frequentes.txt -r $presse/REPERTOIRE.txt -r DATE -r 1-10
macro=$presse/AFC_MACRO/261121_1000
echo
echo "Macro-distribution par date (écarts réduits) : $macro"
iconv -f CP1252 -t UTF-8 $macro/ECART_REDUIT.txt
echo

# Its correspondence analysis, solved and finalised in one go, and the flat map of factors 1 and 2.
build/telvoris smn_afc --attendre -r $macro/ECRETEE.txt
build/telvoris smn_p2 -r 1 -r 2 -r O -r O -r O -r O -r O -r O \
    -r $macro/ECRETEE/corco.txt -r $macro/ECRETEE/corli.txt
echo
echo "Projection des facteurs 1 et 2 : $macro/ECRETEE/coli_PROJ12.txt"
head -n 12 $macro/ECRETEE/coli_PROJ12.txt | iconv -f CP1252 -t UTF-8
echo

# Exploration: the index of the tagged corpus, then a query with its concordance and its
# distribution over the articles.
build/telvoris Form1.smn_idx -r N -r $presse/REPERTOIRE.txt -r O
build/telvoris requete $presse/REPERTOIRE.txt --forme "port*" --concordance --macro
