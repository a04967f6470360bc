#!/usr/bin/env bash
# Screenshots of the session windows of Form2: their tests drive them under a virtual X display and
# save docs/captures/composes_cas.png (compound validation: a case, forms being typed),
# composes_confirmation.png (the buffer open for correction every ten cases) and
# identification_entree.png (unknown words: the entry form over the concordance).
#   bash scripts/captures_composes.sh [BUILD_FOLDER]
set -euo pipefail
racine=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$racine/build}
command -v xvfb-run >/dev/null || { echo "captures : xvfb-run manque (paquet xvfb)" >&2; exit 2; }
[ -x "$build/test_gui" ] || { echo "captures : $build/test_gui absent, compilez d'abord" >&2; exit 2; }
mkdir -p "$racine/docs/captures"
TELVORIS_CAPTURES="$racine/docs/captures" QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1400x900x24" \
    "$build/test_gui" --gtest_filter='ComposesFenetre.MemesDecisions*:IdentificationFenetre.MemesDecisions*'
for png in composes_cas composes_confirmation identification_entree; do
    f="$racine/docs/captures/$png.png"
    [ -s "$f" ] || { echo "captures : $f absent" >&2; exit 1; }
    echo "$f"
done
