#!/usr/bin/env bash
# kill -9 of the rewriting stages at three points, then the same command again: the tagged tree
# must be byte for byte that of an uninterrupted run, and the backups those of the original texts.
# Usage:
#   bench/reprise_kill9.sh [BUILD_FOLDER] [SEGMENTED_CORPUS] [WORK_FOLDER] [STAGES]
# SEGMENTED_CORPUS defaults to bench/corpus/presse_100mo, built and segmented beforehand (or a
# copy of the shared one: REPERTOIRE.txt and the top-level texts of OLBRIN_TT are enough):
#   bash bench/construire_corpus.sh --mo 100 bench/corpus/presse_100mo
#   build/telvoris smn_seg -r bench/corpus/presse_100mo/REPERTOIRE.txt
# STAGES: a blank-separated choice among smn_cmp smn_aup smn_cormam (default: all three).
# The kill points are a quarter, half and three quarters of the texts of the list, read from the
# stage's in-progress record; the stage is killed as soon as the record lists that many texts, so
# that the kill falls in the middle of the next text's rewriting. Each line of the report gives
# the last text listed when killed (the one being rewritten, or the last of the batch under way
# for the word-for-word correction, which lists by batches), the message of the rerun and the result of diff -r.
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build}"
source="${2:-bench/corpus/presse_100mo}"
travail="${3:-/dev/shm/telvoris_reprise}"
etapes="${4:-smn_cmp smn_aup smn_cormam}"
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
mkdir -p "$travail"
# The word-for-word list: frequent words turned into others, one of them into two words.
liste_cormam="$travail/liste_cormam.txt"
printf 'de\tdu\r\nle\tla\r\net\tou\r\npour\tpar\r\nau\tà le\r\n' | iconv -f UTF-8 -t CP1252 >"$liste_cormam"

# A fresh copy of the segmented texts in $1.
preparer() {
    rm -rf "$1"
    mkdir -p "$1/OLBRIN_TT"
    cp "$source/REPERTOIRE.txt" "$1/"
    find "$source/OLBRIN_TT" -maxdepth 1 -name '*.txt' -exec cp -t "$1/OLBRIN_TT" {} +
}

# The answers of each stage, before the list of texts.
reponses() {
    case "$1" in
        smn_cormam) echo "-r $liste_cormam" ;;
        *) echo "" ;;
    esac
}

lancer() {  # FOLDER OPERATION [OUTPUT]
    # shellcheck disable=SC2046
    "$build/telvoris" "$2" --ressources "$arbre" $(reponses "$2") -r "$1/REPERTOIRE.txt" \
        --horloge "2026-01-01 10:00:00" >"${3:-/dev/null}"
}

echec=0
for op in $etapes; do
    case "$op" in
        smn_cmp) sauvegarde=AVANT_COMP ;;
        smn_aup) sauvegarde=AVANT_AUTOMATE_SIMPLES ;;
        smn_cormam) sauvegarde=AVANT_CORMAM ;;
        *) echo "Étape inconnue : $op" >&2; exit 2 ;;
    esac
    temoin="$travail/temoin_$op"
    preparer "$temoin"
    # The automatic pass runs on texts whose compounds are marked, as in the pipeline.
    if [ "$op" = smn_aup ]; then
        lancer "$temoin" smn_cmp
        rm -rf "$temoin/OLBRIN_TT/AVANT_COMP"
    fi
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
        # shellcheck disable=SC2046
        "$build/telvoris" "$op" --ressources "$arbre" $(reponses "$op") -r "$essai/REPERTOIRE.txt" \
            --horloge "2026-01-01 10:00:00" >/dev/null 2>&1 &
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
        dernier=$(tail -n 1 "$record" 2>/dev/null | tr -d '\r' || true)
        sortie="$travail/relance_${op}_$quart.txt"
        lancer "$essai" "$op" "$sortie"
        message=$(iconv -f UTF-8 -t UTF-8 "$sortie" | grep -m1 'pas allée à son terme' || echo "(aucun message de reprise)")
        d1=$(diff -r "$temoin/OLBRIN_TT" "$essai/OLBRIN_TT" | wc -l || true)
        d2=$(diff -r "$entree/OLBRIN_TT" "$essai/OLBRIN_TT/$sauvegarde" -x 'AVANT_*' -x '#*' -x 'TEXTE_*' -x 'LEXINDEX' \
            -x 'REPERE_LIGNES' -x 'NB_PARTITIONS' -x 'METADONNEES' | wc -l || true)
        echo "  kill -9 après $listes textes sur $textes (dernier texte listé, en cours ou dans le lot en cours : $dernier)"
        echo "    relance : $message"
        if [ "$d1" -eq 0 ] && [ "$d2" -eq 0 ]; then
            echo "    diff -r avec la passe sans arrêt : aucune différence ; sauvegardes = textes d'origine"
            rm -rf "$essai"
        else
            echo "    diff -r : $d1 ligne(s) avec la passe sans arrêt, $d2 avec les textes d'origine (voir $essai)"
            echec=1
        fi
    done
    [ $echec -eq 0 ] && rm -rf "$temoin" "$entree"
done
exit $echec
