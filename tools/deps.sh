#!/usr/bin/env bash
# Installs, from Debian's packages, whatever the build and the tests need and this
# machine lacks. Safe to run again: it installs nothing that is already there.
set -euo pipefail

packages=(
  cmake g++ make pkg-config
  qt6-base-dev libgl-dev fonts-ipafont-gothic
  libgtest-dev libgmock-dev
  libbenchmark-dev
  clang libclang-rt-14-dev clang-format
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

if ((${#missing[@]})); then
  echo "Installing: ${missing[*]}"
  SUDO=""
  [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
