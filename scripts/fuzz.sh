#!/usr/bin/env bash
# Builds the ImportBuffer fuzzer with clang and runs it for a bounded time (default 60 s) on a
# corpus seeded with valid files of every frame kind. Fails on any crash, leak or sanitizer
# report; the input that caused it is left in build-fuzz/.
#   scripts/fuzz.sh [SECONDS]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}

scripts/setup-deps.sh
CC=clang CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DDATAOBJECTS_BUILD_FUZZERS=ON -DDATAOBJECTS_BUILD_TESTS=OFF -DDATAOBJECTS_BUILD_BENCHMARKS=OFF \
  -DDATAOBJECTS_BUILD_TOOLS=OFF >/dev/null
cmake --build build-fuzz --target import_buffer_fuzzer import_buffer_seeds

corpus=build-fuzz/corpus
mkdir -p "$corpus"
build-fuzz/tests/fuzz/import_buffer_seeds "$corpus"
suppressions=$(pwd)/tests/fuzz/lsan.supp
cd build-fuzz
rm -f crash-* leak-* timeout-* oom-*
LSAN_OPTIONS=suppressions=$suppressions ./tests/fuzz/import_buffer_fuzzer -max_total_time="$seconds" -timeout=10 -rss_limit_mb=4096 -max_len=65536 \
  -print_final_stats=1 corpus
