#!/usr/bin/env bash
# Builds Telvoris and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/preparer.sh
ctest --test-dir build -j2 --output-on-failure
