#!/usr/bin/env bash
# The whole road on one corpus, from the press download to the query: import ("Europresse",
# smn_eur), segmentation with the segment index (smn_seg), compounds (smn_cmp), automatic pass
# (smn_aup), the segment index made again from the tagged texts (Form2.smn_idx), exploration
# index (Form1.smn_idx), lexicon of forms (smn_lx), then two queries (a
# frequent lemma with its count and macro-distribution, a compound marked on the way with its
# concordance). Each stage
# is timed with its peak memory; the run stops at the first stage that fails.
# Usage: bench/parcours_complet.sh [BUILD_FOLDER] [ARTICLES] [WORK_FOLDER] [THREADS]
# 31,000 articles (the default) make a download of 108 MB whose import gives about 100 MB of
# text. The download is built once by bench/construire_telechargement.py and kept in bench/corpus;
# the work folder (default bench/corpus/parcours_<articles>) is made anew at each run. One import
# run reads at most 13,862 articles, so the download is imported folder by folder, as a person
# does with several downloads: each run extends the day files the runs before it wrote.
# Nothing is deleted while stages are timed: the work folder of the run before and the folders
# of each import batch (one file per article) are moved into a trash folder, their pages released
# from the cache (liberer_pages.py), and the trash goes at the end. On this machine's ext4 without
# a journal, every file created in the minute after a mass deletion steps over the freed inodes
# (perf: ext4_create -> recently_deleted), which would charge a stage for the bench's own
# deletions. Let a few minutes pass between two runs for the same reason.
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build}"
articles="${2:-31000}"
travail="${3:-bench/corpus/parcours_${articles}}"
fils="${4:-2}"
exe="$(cd "$build" && pwd)/telvoris"
if [ ! -x "$exe" ] || [ ! -f "$build/MORVENTA/morv_res/dico/olbrin/15t.txt" ]; then
    cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
    cmake --build "$build" -j2 --target telvoris ressources
fi
arbre="$(cd "$build/MORVENTA/morv_res" && pwd)"
telechargement="bench/corpus/telechargement_${articles}"
if [ ! -d "$telechargement/ARCHIVE" ]; then
    python3 bench/construire_telechargement.py --articles "$articles" "$telechargement" >/dev/null
fi
corbeille="bench/corpus/.corbeille_parcours"
mettre_de_cote() {  # moves its arguments into the trash, then releases their pages
    local lot
    lot="$corbeille/$(date +%s%N)"
    mkdir -p "$lot"
    local d
    for d in "$@"; do [ -e "$d" ] && mv "$d" "$lot/"; done
    sync
    python3 bench/liberer_pages.py "$lot" >/dev/null
}
mettre_de_cote "$travail"
mkdir -p "$travail/ARCHIVE_BRUT"
cp "$telechargement/REPERTOIRE.txt" "$travail/"
mkdir -p bench/resultats
mesure="$(pwd)/bench/resultats/parcours_${articles}"
rm -f "$mesure".*.time
etape() {  # $1: label, then the command
    local nom="$1"
    shift
    echo "$nom..." >&2
    if ! /usr/bin/time -v -o "$mesure.$nom.time" "$@" > "$mesure.$nom.sortie" 2>&1; then
        echo "ÉCHEC de l'étape $nom :" >&2
        tail -5 "$mesure.$nom.sortie" >&2
        exit 1
    fi
}
liste="$(cd "$travail" && pwd)/REPERTOIRE.txt"
lots=0
for dossier in $(ls "$telechargement/ARCHIVE" | sort -n); do
    lots=$((lots + 1))
    mettre_de_cote "$travail/ARCHIVE" "$travail/ARTICLES"
    mkdir -p "$travail/ARCHIVE" "$travail/ARTICLES"
    cp -r "$telechargement/ARCHIVE/$dossier" "$travail/ARCHIVE/1"
    etape "import$lots" "$exe" smn_eur --ressources "$arbre" --reponse "$liste"
done
mettre_de_cote "$travail/ARCHIVE" "$travail/ARTICLES"
# The list names the day files the import made (file names on disk are UTF-8, the list CP1252).
ls "$travail/ARCHIVE_BRUT" | sed 's/\.txt$//' | iconv -f UTF-8 -t CP1252 | sed 's/$/\r/' > "$liste"
textes=$(wc -l < "$liste")
octets=$(cat "$travail"/ARCHIVE_BRUT/*.txt | wc -c)
etape segmentation "$exe" smn_seg --fils "$fils" --ressources "$arbre" -r "$liste"
etape composes "$exe" smn_cmp --fils "$fils" --ressources "$arbre" -r "$liste"
etape passe_automatique "$exe" smn_aup --fils "$fils" --ressources "$arbre" -r "$liste"
etape reindexation "$exe" Form2.smn_idx --fils "$fils" --ressources "$arbre" -r "$liste"
etape index "$exe" Form1.smn_idx --ressources "$arbre" -r N -r "$liste"
etape lexique "$exe" smn_lx --ressources "$arbre" -r 0 -r N -r N -r O -r "$liste"
etape requete_lemme "$exe" requete "$liste" --lemme "conseil_SM" --macro
etape requete_forme "$exe" requete "$liste" --forme "avant_que" --concordance
rm -rf "$corbeille"
python3 - "$mesure" "$octets" "$textes" "$lots" <<'PY' | tee "$mesure.txt"
import re, sys
mesure, octets, textes, lots = sys.argv[1], int(sys.argv[2]), int(sys.argv[3]), int(sys.argv[4])
print(f"corpus : {textes} textes journal-jour, {octets / 1e6:.1f} Mo de texte importé en {lots} lots")
total = 0.0
for nom in [f"import{i}" for i in range(1, lots + 1)] + ["segmentation", "composes", "passe_automatique", "reindexation", "index", "lexique",
            "requete_lemme", "requete_forme"]:
    t = open(f"{mesure}.{nom}.time", errors="replace").read()
    h = re.search(r"Elapsed \(wall clock\) time.*: (.*)", t).group(1).split(":")
    s = sum(float(x) * 60 ** (len(h) - 1 - k) for k, x in enumerate(h))
    m = int(re.search(r"Maximum resident set size \(kbytes\): (\d+)", t).group(1))
    total += s
    print(f"{nom:18} {s:8.2f} s  {octets / 1e6 / max(s, 0.01):7.1f} Mo/s  mémoire maximale {m / 1024:6.0f} Mio")
print(f"{'total':18} {total:8.2f} s")
for nom in ("requete_lemme", "requete_forme"):
    print(f"début de {nom} :", open(f"{mesure}.{nom}.sortie", errors="replace").read()[:160].replace("\n", " | "))
PY
