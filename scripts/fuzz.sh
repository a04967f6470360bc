#!/bin/sh
# Builds the fuzz targets with clang, libFuzzer and the address and undefined-behaviour
# sanitizers, then runs each for SECONDES seconds (default 60) on a copy of its seeds.
# Findings (crash-*, leak-*, timeout-*) are left in build-fuzz/trouvailles/<target>/.
set -eu
secondes=${1:-60}
cd "$(dirname "$0")/.."
export CCACHE_BASEDIR=${CCACHE_BASEDIR:-$PWD} 
CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTELVORIS_LIBFUZZER=ON \
    -DCMAKE_CXX_FLAGS="-O1 -g -fno-omit-frame-pointer -fsanitize=address,undefined,fuzzer-no-link -fno-sanitize-recover=undefined" \
    >/dev/null
cibles=$(cd fuzz && ls fuzz_*.cpp | sed 's/\.cpp$//')
cmake --build build-fuzz -j2 --target $cibles
# The targets that build corpora and indexes write many small files: a folder in memory keeps
# them fuzzing rather than waiting on the disk.
if [ -z "${TMPDIR:-}" ] && [ -d /dev/shm ] && [ -w /dev/shm ]; then export TMPDIR=/dev/shm; fi
echec=0
for c in $cibles; do
    corpus=build-fuzz/corpus/$c
    trouvailles=build-fuzz/trouvailles/$c
    mkdir -p "$corpus" "$trouvailles"
    echo "== $c : $secondes s"
    if ! ./build-fuzz/fuzz/$c -max_total_time="$secondes" -timeout=20 -rss_limit_mb=2048 -max_len=65536 \
            -artifact_prefix="$trouvailles/" -print_final_stats=1 "$corpus" fuzz/graines/$c \
            2>build-fuzz/$c.log; then
        echo "   TROUVAILLE : voir build-fuzz/$c.log et $trouvailles/"
        echec=1
    fi
    grep -E "^stat::number_of_executed_units|^stat::peak_rss_mb" build-fuzz/$c.log | sed 's/^/   /' || true
done
exit $echec
