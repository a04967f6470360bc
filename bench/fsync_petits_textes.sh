#!/usr/bin/env bash
# What the flushes to the disk cost on many small texts: "Composés" (smn_cmp), "Passe
# automatique" (smn_aup) and "Correction mot à mot sur liste" (smn_cormam), which flush by batches
# of 64 texts (backups, then the record, then the texts), over N
# tagged texts of about 2 KB cut from a segmented corpus, with the flushes (the default) and
# without them (TELVORIS_SANS_FSYNC=1, for this measurement only).
# Usage:
#   bench/fsync_petits_textes.sh [BUILD_FOLDER] [SEGMENTED_CORPUS] [WORK_FOLDER] [N] [RUNS]
# WORK_FOLDER must be on a real disk (default bench/corpus/fsync_petits, not /dev/shm, where a
# flush costs nothing). SEGMENTED_CORPUS defaults to bench/corpus/presse_100mo (its tagged texts
# are only read). Each figure is the median of RUNS runs (default 3) on the same input, restored
# before each. ETAPES=... in the environment runs only some of the three.
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build}"
source="${2:-bench/corpus/presse_100mo}"
travail="${3:-bench/corpus/fsync_petits}"
n="${4:-10000}"
fois="${5:-3}"
if [ ! -x "$build/telvoris" ] || [ ! -f "$build/MORVENTA/morv_res/dico/olbrin/15t.txt" ]; then
    cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
    cmake --build "$build" -j1 --target telvoris ressources
fi
if [ ! -d "$source/OLBRIN_TT" ]; then
    echo "Corpus segmenté introuvable : $source" >&2
    exit 2
fi
arbre="$build/MORVENTA/morv_res"
rm -rf "$travail"
mkdir -p "$travail/OLBRIN_TT" "$travail/ENTREE"
# Whole lines of the tagged texts, packed into texts of about 2 KB, in a fixed order.
python3 - "$source/OLBRIN_TT" "$travail/ENTREE" "$n" <<'EOF'
import os, sys
src, dst, n = sys.argv[1], sys.argv[2], int(sys.argv[3])
noms = sorted(f for f in os.listdir(src) if f.endswith('.txt'))
k, tampon, liste = 0, [], []
def lignes():
    while True:
        for f in noms:
            with open(os.path.join(src, f), 'rb') as h:
                for l in h.read().split(b'\r\n'):
                    if l and len(l) < 1500:
                        yield l
for l in lignes():
    tampon.append(l)
    if sum(len(x) + 2 for x in tampon) >= 2048:
        nom = 'T%05d' % (k + 1)
        with open(os.path.join(dst, nom + '.txt'), 'wb') as h:
            h.write(b'\r\n'.join(tampon) + b'\r\n')
        liste.append(nom)
        tampon, k = [], k + 1
        if k == n:
            break
with open(os.path.join(dst, '..', 'REPERTOIRE.txt'), 'wb') as h:
    h.write(b''.join(x.encode() + b'\r\n' for x in liste))
EOF
liste="$travail/REPERTOIRE.txt"
printf 'de\tdu\r\nle\tla\r\net\tou\r\n' >"$travail/liste_cormam.txt"
octets=$(cat "$travail"/ENTREE/*.txt | wc -c)

mesurer() {  # OPERATION SANS_FSYNC -> median seconds of the runs
    local t=()
    for essai in $(seq "$fois"); do
        rm -rf "$travail/OLBRIN_TT"
        mkdir -p "$travail/OLBRIN_TT"
        cp "$travail"/ENTREE/*.txt "$travail/OLBRIN_TT/"
        sync
        /usr/bin/time -f "%e" -o "$travail/temps" env TELVORIS_SANS_FSYNC="$2" "$build/telvoris" "$1" \
            --ressources "$arbre" $([ "$1" = smn_cormam ] && echo "-r $travail/liste_cormam.txt") -r "$liste" >/dev/null
        t+=("$(cat "$travail/temps")")
    done
    printf '%s\n' "${t[@]}" | sort -g | sed -n "$(((fois + 1) / 2))p"
}

echo "$n textes, $octets octets étiquetés, dans $travail ($(df --output=fstype "$travail" | tail -1))"
for op in ${ETAPES:-smn_cmp smn_aup smn_cormam}; do
    avec=$(mesurer "$op" 0)
    sans=$(mesurer "$op" 1)
    echo "$op : avec les fsync $avec s, sans $sans s ($(awk -v a="$avec" -v s="$sans" -v n="$n" \
        'BEGIN{printf "%.2f ms de plus par texte", (a-s)*1000/n}'))"
done
