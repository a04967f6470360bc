#!/usr/bin/env bash
# Screenshots of the compound validation window (Form2, "Identification"): its test drives the
# window under a virtual X display and saves docs/captures/composes_cas.png (a case, forms being
# typed) and composes_confirmation.png (the buffer open for correction every ten cases).
#   bash scripts/captures_composes.sh [BUILD_FOLDER]
set -euo pipefail
racine=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$racine/build}
command -v xvfb-run >/dev/null || { echo "captures : xvfb-run manque (paquet xvfb)" >&2; exit 2; }
[ -x "$build/test_gui" ] || { echo "captures : $build/test_gui absent, compilez d'abord" >&2; exit 2; }
mkdir -p "$racine/docs/captures"
TELVORIS_CAPTURES="$racine/docs/captures" QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1400x900x24" \
    "$build/test_gui" --gtest_filter='ComposesFenetre.MemesDecisions*'
for png in composes_cas composes_confirmation; do
    f="$racine/docs/captures/$png.png"
    [ -s "$f" ] || { echo "captures : $f absent" >&2; exit 1; }
    echo "$f"
done
