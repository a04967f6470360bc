#!/usr/bin/env bash
# Benchmark of the lexical operations on the shipped dictionary (about 450,000 lines):
#  - inflecting 5,000 lemmas (smn_flx), target under 1 s;
#  - integrating 10,000 proposals (smn_ifs), load and backup included, target under 5 s;
#  - each maintenance report (smn_std, smn_extracat, smn_exlf, smn_spl, smn_spd), target under 3 s.
# The lemmas are made up by a seeded generator (reproducible), half the proposals come from real
# verbs of bench/flexions/echantillon.txt, so that the integration both adds lines and merges.
# Usage: bench/lexique.sh        Figures (wall time, peak memory) go to bench/resultats/lexique.txt.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build -j1 --target telvoris ressources >/dev/null
T="$PWD/build/telvoris"
W="$PWD/bench/corpus/lexique"
rm -rf "$W" && mkdir -p "$W"
cp -r build/MORVENTA "$W/"
R="$W/MORVENTA/morv_res"
H=(--horloge "2026-01-01 12:00:00")
python3 - "$W" <<'PY'
import random, sys
w = sys.argv[1]
rnd = random.Random(16)
syl = ["ba", "bri", "cor", "da", "fla", "gon", "li", "mor", "nu", "pla", "ro", "sta", "tri", "vo", "zé"]
vus = set()
lignes = []
while len(lignes) < 5000:
    racine = "".join(rnd.choice(syl) for _ in range(rnd.randint(3, 4)))
    if racine in vus:
        continue
    vus.add(racine)
    k = len(lignes) % 3
    lignes.append([racine + "er,V\t1", racine + "on,SM\t1", racine + "if,J\t4"][k])
open(w + "/lemmes.txt", "wb").write("".join(l + "\r\n" for l in lignes).encode("cp1252"))
reels = [l.rstrip("\n") for l in open("bench/flexions/echantillon.txt", encoding="utf-8") if l[:1] not in "#\n"]
open(w + "/reels.txt", "wb").write("".join(l + "\r\n" for l in reels).encode("cp1252"))
PY
mesure() {  # label, then the command
    local label="$1"; shift
    /usr/bin/time -f "$label\t%e s\t%M Ko" "$@" >/dev/null 2>>"$W/mesures.txt" || { cat "$W/mesures.txt"; exit 1; }
}
: > "$W/mesures.txt"
mesure "smn_flx 5000 lemmes" "$T" smn_flx --ressources "$R" "${H[@]}" -r "$W/lemmes.txt"
"$T" smn_flx --ressources "$R" "${H[@]}" -r "$W/reels.txt" >/dev/null
{ head -n 5000 "$W/reels_FLEX.txt"; head -n 5000 "$W/lemmes_FLEX.txt"; } > "$W/apports.txt"
mesure "smn_ifs $(wc -l < "$W/apports.txt") propositions" "$T" smn_ifs --ressources "$R" "${H[@]}" -r "$W/apports.txt"
mesure "smn_std" "$T" smn_std --ressources "$R" "${H[@]}"
mesure "smn_extracat (V, composés)" "$T" smn_extracat --ressources "$R" "${H[@]}" -r O -r V
mesure "smn_exlf" "$T" smn_exlf --ressources "$R" "${H[@]}"
awk -F'\t' 'NR % 5 == 1 { split($1, a, ","); print a[1] "_V" }' "$W/reels.txt" > "$W/retraits_lemmes.txt"
mesure "smn_spl ($(wc -l < "$W/retraits_lemmes.txt") lemmes)" "$T" smn_spl --ressources "$R" "${H[@]}" \
    --horloge "2026-01-01 12:01:00" -r "$W/retraits_lemmes.txt"
head -n 1000 "$R/dico/olbrin/9c.txt" > "$W/retraits_lignes.txt"
mesure "smn_spd ($(wc -l < "$W/retraits_lignes.txt") lignes)" "$T" smn_spd --ressources "$R" "${H[@]}" \
    --horloge "2026-01-01 12:02:00" -r "$W/retraits_lignes.txt"
mkdir -p bench/resultats
{ echo "Lexique (dictionnaire livré, $(cat "$R"/dico/olbrin/*.txt | wc -l) lignes), $(date -u '+%F %T') UTC"; cat "$W/mesures.txt"; } \
    | tee bench/resultats/lexique.txt
