#!/usr/bin/env bash
# kill -9 of the rewriting stages at three points, then the same command again: the tagged tree
# must be byte for byte that of an uninterrupted run, and the backups those of the original texts.
# Usage:
#   bench/reprise_kill9.sh [BUILD_FOLDER] [SEGMENTED_CORPUS] [WORK_FOLDER]
# SEGMENTED_CORPUS defaults to bench/corpus/presse_100mo, built and segmented beforehand:
#   bash bench/construire_corpus.sh --mo 100 bench/corpus/presse_100mo
#   build/telvoris smn_seg -r bench/corpus/presse_100mo/REPERTOIRE.txt
# The kill points are a quarter, half and three quarters of the texts of the list, read from the
# stage's in-progress record; the stage is killed as soon as the record lists that many texts, so
# that the kill falls in the middle of the next text's rewriting.
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build}"
source="${2:-bench/corpus/presse_100mo}"
travail="${3:-/dev/shm/telvoris_reprise}"
if [ ! -x "$build/telvoris" ] || [ ! -f "$build/MORVENTA/morv_res/dico/olbrin/15t.txt" ]; then
    cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
    cmake --build "$build" -j1 --target telvoris ressources
fi
if [ ! -f "$source/REPERTOIRE.txt" ] || [ ! -d "$source/OLBRIN_TT" ]; then
    echo "Corpus segmenté introuvable : $source (voir l'en-tête de ce script)" >&2
    exit 2
fi
arbre="$build/MORVENTA/morv_res"
textes=$(grep -c . "$source/REPERTOIRE.txt")

# A fresh copy of the segmented texts in $1.
preparer() {
    rm -rf "$1"
    mkdir -p "$1/OLBRIN_TT"
    cp "$source/REPERTOIRE.txt" "$1/"
    find "$source/OLBRIN_TT" -maxdepth 1 -name '*.txt' -exec cp -t "$1/OLBRIN_TT" {} +
}

lancer() {  # FOLDER OPERATION
    "$build/telvoris" "$2" --ressources "$arbre" -r "$1/REPERTOIRE.txt" --horloge "2026-01-01 10:00:00" >/dev/null
}

echec=0
for etape in smn_cmp:AVANT_COMP smn_aup:AVANT_AUTOMATE_SIMPLES; do
    op=${etape%%:*}
    sauvegarde=${etape#*:}
    temoin="$travail/temoin_$op"
    preparer "$temoin"
    [ "$op" = smn_aup ] && lancer "$temoin" smn_cmp
    [ "$op" = smn_aup ] && rm -rf "$temoin/OLBRIN_TT/AVANT_COMP"
    entree="$travail/entree_$op"
    rm -rf "$entree"
    cp -r "$temoin" "$entree"
    debut=$(date +%s.%N)
    lancer "$temoin" "$op"
    fin=$(date +%s.%N)
    echo "$op : passe sans arrêt en $(echo "$fin - $debut" | bc) s sur $textes textes"
    for quart in 1 2 3; do
        k=$((textes * quart / 4))
        essai="$travail/essai_${op}_$quart"
        rm -rf "$essai"
        cp -r "$entree" "$essai"
        record="$essai/OLBRIN_TT/#EN_COURS_$sauvegarde.txt"
        "$build/telvoris" "$op" --ressources "$arbre" -r "$essai/REPERTOIRE.txt" --horloge "2026-01-01 10:00:00" \
            >/dev/null 2>&1 &
        pid=$!
        # The record holds a header line, then one name a text.
        while kill -0 "$pid" 2>/dev/null; do
            if [ -f "$record" ] && [ "$(grep -c . "$record" 2>/dev/null || echo 0)" -gt "$k" ]; then
                kill -9 "$pid"
                break
            fi
            sleep 0.01
        done
        wait "$pid" 2>/dev/null || true
        listes=$(($(grep -c . "$record" 2>/dev/null || echo 1) - 1))
        lancer "$essai" "$op"
        if diff -r "$temoin/OLBRIN_TT" "$essai/OLBRIN_TT" >/dev/null &&
            diff -r "$entree/OLBRIN_TT" "$essai/OLBRIN_TT/$sauvegarde" -x 'AVANT_*' -x '#*' -x 'TEXTE_*' -x 'LEXINDEX' \
                -x 'REPERE_LIGNES' -x 'NB_PARTITIONS' -x 'METADONNEES' >/dev/null; then
            echo "  arrêt par kill -9 après $listes textes sur $textes : relance identique à la passe sans arrêt"
        else
            echo "  arrêt par kill -9 après $listes textes sur $textes : DIFFÉRENCES (voir $essai)"
            echec=1
        fi
    done
done
exit $echec
