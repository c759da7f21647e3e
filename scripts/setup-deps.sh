#!/usr/bin/env bash
# Installs the Debian packages the build needs, and only those that are missing.
# Safe to run again: with everything present it does nothing and prints nothing.
set -euo pipefail

packages=(
  g++ cmake ninja-build
  qtbase5-dev libboost-dev libhdf5-dev
  libcli11-dev libtiff-dev libpng-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  clang libclang-rt-14-dev
)

missing=()
for p in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${Status}' "$p" 2>/dev/null || true)
  [[ "$status" == "install ok installed" ]] || missing+=("$p")
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

sudo=()
[[ $(id -u) -eq 0 ]] || sudo=(sudo)
echo "setup-deps: installing ${missing[*]}" >&2
export DEBIAN_FRONTEND=noninteractive
"${sudo[@]}" apt-get update -qq
"${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
