#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every test: the whole suite with
# the Qt host under the offscreen platform, the core and headless suites again under the
# address and undefined-behaviour sanitizers, a short run of every fuzz target, and one
# quick pass of the benchmarks (their ratios are printed, never asserted).
set -euo pipefail
cd "$(dirname "$0")/.."
jobs="$(nproc)"
bash tools/deps.sh

export QT_QPA_PLATFORM=offscreen

echo "== format (.clang-format, every C++ file)"
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror

echo "== build and test (Qt host included)"
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$jobs"
(cd build && ctest --output-on-failure -j"$jobs")

echo "== build and test under address and undefined-behaviour sanitizers"
cmake -S . -B build-sanitize -DCMAKE_BUILD_TYPE=Debug -DCORVEX_SANITIZE=ON \
  -DCORVEX_WITH_QT=OFF -DCORVEX_BENCH=OFF >/dev/null
cmake --build build-sanitize -j"$jobs"
(cd build-sanitize && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --output-on-failure -j"$jobs")

echo "== fuzz targets, a short run each"
CC=clang CXX=clang++ cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCORVEX_FUZZ=ON \
  -DCORVEX_WITH_QT=OFF -DCORVEX_TESTS=OFF -DCORVEX_BENCH=OFF >/dev/null
cmake --build build-fuzz -j"$jobs"
for target in build-fuzz/fuzz/*_fuzz; do
  [ -x "$target" ] || continue
  echo "-- $(basename "$target")"
  "$target" -max_total_time="${FUZZ_SECONDS:-15}" -print_final_stats=0 2>&1 | tail -n 2
done

echo "== benchmarks, one quick pass"
for bench in build/bench/*_bench; do
  [ -x "$bench" ] || continue
  "$bench" --benchmark_min_time=0.01 2>/dev/null | grep -E '^ratio' || true
done

echo "== all tests again, for the summary"
(cd build && ctest -j"$jobs" | tail -n 3)
