#!/usr/bin/env bash
# Installs what is missing, configures, builds and runs every test, with warnings as errors.
#   scripts/test.sh              release build in build/
#   scripts/test.sh --sanitize   AddressSanitizer + UndefinedBehaviorSanitizer build in build-sanitize/
set -euo pipefail
cd "$(dirname "$0")/.."

build=build
options=(-DDATAOBJECTS_WARNINGS_AS_ERRORS=ON)
for arg in "$@"; do
  case "$arg" in
    --sanitize) build=build-sanitize
                options+=(-DDATAOBJECTS_SANITIZE=ON -DCMAKE_BUILD_TYPE=RelWithDebInfo
                          -DDATAOBJECTS_BUILD_BENCHMARKS=OFF) ;;
    *) echo "usage: $0 [--sanitize]" >&2; exit 2 ;;
  esac
done

scripts/setup-deps.sh
cmake -S . -B "$build" -G Ninja "${options[@]}" >/dev/null
cmake --build "$build"
# Leaks are errors too; Qt's own start-up allocations are not leaks of ours.
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
ctest --test-dir "$build" --output-on-failure -j"$(nproc)"
