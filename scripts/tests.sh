#!/usr/bin/env bash
# Builds Telvoris and runs every test: once as released, then once more built with the address
# and undefined-behaviour sanitizers, so that a read out of bounds or a dangling view fails.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/preparer.sh
ctest --test-dir build -j2 --output-on-failure
# Tagging quality on the hand-checked sample must not fall below the level reached.
python3 tests/qualite/mesurer.py build --seuil 98.9
# The record of the review of the most frequent forms matches the curated layer and the dictionary.
python3 tools/revue_courant.py build --verifier
cmake -S . -B build-san -G Ninja -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS="-O1 -fno-omit-frame-pointer -fsanitize=address,undefined -fno-sanitize-recover=undefined" >/dev/null
cmake --build build-san -j2
ctest --test-dir build-san -j2 --output-on-failure
