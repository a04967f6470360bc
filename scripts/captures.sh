#!/usr/bin/env bash
# Screenshots of the three work areas: starts the real telvoris-gui under a virtual X display
# (xvfb-run), grabs each area's window as a PNG into docs/, and fails on a capture that is not a
# well-formed PNG of the window's size or that is blank.
#   bash scripts/captures.sh [DOSSIER_DE_SORTIE]
set -euo pipefail
racine=$(cd "$(dirname "$0")/.." && pwd)
gui=${TELVORIS_GUI:-$racine/build/telvoris-gui}
sortie=${1:-$racine/docs}

for outil in xvfb-run xwininfo import identify; do
    command -v "$outil" >/dev/null || { echo "captures : $outil manque (paquets xvfb, x11-utils, imagemagick)" >&2; exit 2; }
done
[ -x "$gui" ] || { echo "captures : $gui absent, compilez d'abord (cmake --build build)" >&2; exit 2; }

# Under the virtual display, the script runs itself again.
if [ -z "${TELVORIS_CAPTURE_X:-}" ]; then
    exec env TELVORIS_CAPTURE_X=1 xvfb-run -a -s "-screen 0 1280x900x24" bash "$0" "$@"
fi

options=()
# The tree built beside the program is found by the program itself; otherwise the test tree.
[ -d "$(dirname "$gui")/MORVENTA/morv_res" ] || options=(--ressources "$racine/tests/fixtures/MORVENTA/morv_res")
mkdir -p "$sortie"
echec=0
for zone in Form1 Form2 Form3; do
    case $zone in
        Form1) titre="TELVORIS_ACCUEIL ET EXPLORATION" ;;
        Form2) titre="ENVIRONNEMENT D'ETIQUETAGE SEMI-AUTOMATIQUE : OLBRIN" ;;
        Form3) titre="OUTILS DE COLLECTE ET DE PROJECTION POUR L'AFC" ;;
    esac
    png="$sortie/$zone.png"
    rm -f "$png"
    "$gui" "${options[@]}" --zone "$zone" 2>/dev/null &
    pid=$!
    id=""
    for _ in $(seq 100); do
        id=$(xwininfo -root -tree | awk -v t="\"$titre\":" 'index($0, t) { print $1; exit }')
        [ -n "$id" ] && break
        sleep 0.1
    done
    if [ -z "$id" ]; then
        echo "captures : la fenêtre « $titre » n'est pas apparue" >&2
        kill "$pid" 2>/dev/null || true
        exit 1
    fi
    sleep 1  # the first paint
    largeur=$(xwininfo -id "$id" | awk '/Width:/ { print $2 }')
    hauteur=$(xwininfo -id "$id" | awk '/Height:/ { print $2 }')
    import -window "$id" "$png"
    kill "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true

    # A well-formed PNG of the window's size...
    if [ "$(head -c 8 "$png" | od -An -tx1 | tr -d ' \n')" != "89504e470d0a1a0a" ]; then
        echo "captures : $png n'est pas un PNG" >&2; echec=1; continue
    fi
    read -r format l h couleurs ecart < <(identify -format '%m %w %h %k %[fx:standard_deviation]\n' "$png")
    if [ "$format" != PNG ] || [ "$l" != "$largeur" ] || [ "$h" != "$hauteur" ]; then
        echo "captures : $png mal formé ($format ${l}x$h, fenêtre ${largeur}x$hauteur)" >&2; echec=1; continue
    fi
    # ... that is not blank: a window with its menus and panes has many shades.
    if [ "$couleurs" -lt 16 ] || awk -v e="$ecart" 'BEGIN { exit !(e < 0.02) }'; then
        echo "captures : $png est vide ($couleurs couleurs, écart $ecart)" >&2; echec=1; continue
    fi
    echo "$png : ${l}x$h, $couleurs couleurs"
done
exit $echec
