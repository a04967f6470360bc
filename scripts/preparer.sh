# Installs what the build needs when it is missing, then configures and builds (sourced).
paquets="g++ cmake ninja-build libgtest-dev libeigen3-dev ccache libxml2-utils python3 python3-grammalecte qt6-base-dev xvfb xauth x11-utils imagemagick clang debian-reference-fr"
manquants=""
for p in $paquets; do dpkg -s "$p" >/dev/null 2>&1 || manquants="$manquants $p"; done
if [ -n "$manquants" ]; then
    sudo=""
    [ "$(id -u)" -ne 0 ] && sudo="sudo"
    echo "Installation de :$manquants"
    $sudo apt-get update -qq
    $sudo apt-get install -y -qq $manquants >/dev/null
fi
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build -j2
