#!/usr/bin/env bash
# Builds the benchmarks in release mode and runs each program; extra arguments go to every
# program (for example --benchmark_filter=Assign). Read results as ratios to the reference
# rows (memcpy) of the same run.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup-deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release -DDATAOBJECTS_BUILD_BENCHMARKS=ON >/dev/null
cmake --build build
for program in build/bench/*_bench; do
  echo "== ${program##*/}"
  "$program" --benchmark_min_time=0.5 "$@"
done
