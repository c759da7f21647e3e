#!/usr/bin/env bash
# Installs the built tree into a scratch prefix, then builds and runs a consumer project once
# through find_package and once through add_subdirectory.
#   check-package.sh SOURCE_DIR BUILD_DIR SCRATCH_DIR
set -euo pipefail
source_dir=$1 build_dir=$2 scratch=$3
rm -rf "$scratch"
cmake --install "$build_dir" --prefix "$scratch/prefix" >/dev/null

cmake -S "$source_dir/tests/package" -B "$scratch/installed" -G Ninja \
      -DCMAKE_PREFIX_PATH="$scratch/prefix" >/dev/null
cmake --build "$scratch/installed" >/dev/null
LD_LIBRARY_PATH="$scratch/prefix/lib:${LD_LIBRARY_PATH:-}" "$scratch/installed/consumer"

cmake -S "$source_dir/tests/package" -B "$scratch/subdirectory" -G Ninja \
      -DDATAOBJECTS_SOURCE_DIR="$source_dir" >/dev/null
cmake --build "$scratch/subdirectory" --target consumer >/dev/null
"$scratch/subdirectory/consumer"
echo "package check passed"
