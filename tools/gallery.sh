#!/usr/bin/env bash
# Installs what is missing, builds the library with the Qt host, and runs the gallery.
# Without a display the gallery runs offscreen, shows a short demonstration and writes
# a screenshot, printing where.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$(nproc)" --target corvex-gallery
exec ./build/apps/gallery/corvex-gallery "$@"
