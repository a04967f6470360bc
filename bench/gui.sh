#!/usr/bin/env bash
# Benchmark of the desktop application (Qt offscreen platform, no display needed):
#  1. start of the process to the first painted Form1, five runs;
#  2. with a segmented corpus (default bench/corpus/presse_100mo, see bench/passe_automatique.sh),
#     after the automatic pass on a copy: the review window opened on it (loading on the worker
#     thread with the bar, the largest case shown first and painted, then scrolled to its end),
#     beside the terminal session's opening of the same case.
# Usage: bench/gui.sh [BUILD_FOLDER] [SEGMENTED_CORPUS] [WORK_FOLDER]
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build}"
source="${2:-bench/corpus/presse_100mo}"
travail="${3:-/dev/shm/telvoris_gui}"
export QT_QPA_PLATFORM=offscreen
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" -j1 --target telvoris ressources gui_mesure >/dev/null
arbre="$build/MORVENTA/morv_res"
mkdir -p bench/resultats
sortie=bench/resultats/gui.txt
: > "$sortie"
for i in 1 2 3 4 5; do
    ligne=$(/usr/bin/time -f "%M" -o /tmp/telvoris_gui_temps "$build/gui_mesure" "$(date +%s%N)" "$arbre" 2>/dev/null)
    echo "$ligne, $(cat /tmp/telvoris_gui_temps) kio au plus" | tee -a "$sortie"
done

if [ ! -f "$source/REPERTOIRE.txt" ] || [ ! -d "$source/OLBRIN_TT" ]; then
    echo "Corpus segmenté introuvable : $source ; la mesure de la fenêtre de levée est sautée." | tee -a "$sortie"
    exit 0
fi
rm -rf "$travail"
trap 'rm -rf "$travail"' EXIT
mkdir -p "$travail/OLBRIN_TT"
cp "$source/REPERTOIRE.txt" "$travail/"
find "$source/OLBRIN_TT" -maxdepth 1 -name '*.txt' -exec cp -t "$travail/OLBRIN_TT" {} +
liste="$travail/REPERTOIRE.txt"
"$build/telvoris" smn_aup --ressources "$arbre" -r "$liste" >/dev/null
tt="$travail/OLBRIN_TT"
octets=$(cat "$tt"/*.txt | wc -c)
# The largest case first: every case in front of it is marked as treated.
read -r rang occ < <(awk -F'\t' '{ n = split($NF, p, "-"); if (n > max) { max = n; r = NR } } END { print r, max }' "$tt/#INDEX_ms.txt")
nbcas=$(wc -l < "$tt/#INDEX_ms.txt")
# Each run starts from the same state: a session opened again within the same minute finds its
# dated copy of the texts and skips writing it, which would favour the second run.
etat() {
    awk -v r="$rang" -v n="$nbcas" 'BEGIN { for (i = 1; i <= n; i++) printf "%s\r\n", (i < r ? "1" : "0") }' > "$tt/#F_ETAT.txt"
    rm -rf "$tt/AVANT_LEVCON"
}
etat
/usr/bin/time -f "%e %M %U %S" -o "$travail/temps_gui" "$build/gui_mesure" "$(date +%s%N)" "$arbre" "$liste" > "$travail/mesure_gui"
read -r s_gui k_gui u_gui y_gui < "$travail/temps_gui"
etat
/usr/bin/time -f "%e %M %U %S" -o "$travail/temps_cli" "$build/telvoris" smn_lev --ressources "$arbre" -r "$liste" \
    -r O -r I -r O > /dev/null
read -r s_cli k_cli u_cli y_cli < "$travail/temps_cli"
{
    echo "Fenêtre de levée : $octets octets étiquetés, $nbcas cas, le plus grand (n°$rang) de $occ occurrences"
    sed 's/^/  /' "$travail/mesure_gui"
    echo "  gui_mesure en tout : $s_gui s (processeur : $u_gui s utilisateur, $y_gui s système), $((k_gui / 1024)) Mio au plus"
    echo "  telvoris smn_lev (ouverture, premier cas, interruption) : $s_cli s (processeur : $u_cli s utilisateur, $y_cli s système), $((k_cli / 1024)) Mio au plus"
} | tee -a "$sortie"
