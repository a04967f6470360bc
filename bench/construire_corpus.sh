#!/bin/sh
# Construit le corpus de mesure (voir construire_corpus.py).
# Installe au besoin le paquet Debian qui fournit la prose source.
# Usage : bench/construire_corpus.sh [--mo N] [--detail] [sortie]
set -e
SOURCE=/usr/share/debian-reference/debian-reference.fr.txt.gz
if [ ! -f "$SOURCE" ]; then
    echo "Installation de debian-reference-fr (source du corpus)..." >&2
    apt-get update -qq && apt-get install -y -qq debian-reference-fr
fi
exec python3 "$(dirname "$0")/construire_corpus.py" "$@"
