#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every test: the whole suite with
# the Qt host under the offscreen platform, the whole suite again (Qt host included) under
# the address and undefined-behaviour sanitizers, a short run of every fuzz target, and one
# quick pass of the benchmarks (their ratios are printed, never asserted). Each suite runs
# once; the last lines are the summary of both test runs.
set -euo pipefail
cd "$(dirname "$0")/.."
jobs="$(nproc)"
bash tools/deps.sh

export QT_QPA_PLATFORM=offscreen

# run_suite NAME DIR [VAR=VALUE...]: runs the tests of one build once, keeps the outcome for
# the summary, and goes on to the next step even when a test failed (the script fails at
# the end).
summary=()
passed_total=0
failed_total=0
status=0
run_suite() {
  local name="$1" dir="$2"
  shift 2
  local log="$dir/ctest-summary.log"
  if ! (cd "$dir" && env "$@" ctest --output-on-failure -j"$jobs") 2>&1 | tee "$log"; then
    status=1
  fi
  local line
  line="$(grep -E '^[0-9]+% tests passed' "$log" | tail -n 1 || true)"
  if [[ "$line" =~ ([0-9]+)\ tests\ failed\ out\ of\ ([0-9]+) ]]; then
    failed_total=$((failed_total + BASH_REMATCH[1]))
    passed_total=$((passed_total + BASH_REMATCH[2] - BASH_REMATCH[1]))
  else
    line="no summary (ctest did not finish)"
    status=1
  fi
  summary+=("$name: $line")
}

echo "== format (.clang-format, every C++ file)"
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror

echo "== build and test (Qt host included)"
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$jobs"
run_suite "tests" build

echo "== build and test under address and undefined-behaviour sanitizers (Qt host included)"
cmake -S . -B build-sanitize -DCMAKE_BUILD_TYPE=Debug -DCORVEX_SANITIZE=ON \
  -DCORVEX_BENCH=OFF >/dev/null
cmake --build build-sanitize -j"$jobs"
# Leaks inside the system's own libraries (fonts, graphics) are suppressed, each for a
# reason given in the file; everything of ours is checked.
run_suite "tests under sanitizers" build-sanitize \
  ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  LSAN_OPTIONS="suppressions=$PWD/tools/lsan-suppressions.txt:print_suppressions=0"

echo "== fuzz targets, a short run each"
CC=clang CXX=clang++ cmake -S . -B build-fuzz -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCORVEX_FUZZ=ON \
  -DCORVEX_WITH_QT=OFF -DCORVEX_TESTS=OFF -DCORVEX_BENCH=OFF >/dev/null
cmake --build build-fuzz -j"$jobs"
for target in build-fuzz/fuzz/*_fuzz; do
  [ -x "$target" ] || continue
  echo "-- $(basename "$target")"
  # A finding fails the run at the end, as a failed test does; the others still run.
  if ! "$target" -max_total_time="${FUZZ_SECONDS:-15}" -print_final_stats=0 \
    >"$target.log" 2>&1; then
    echo "$(basename "$target") found a failure:"
    tail -n 20 "$target.log"
    summary+=("fuzz: $(basename "$target") found a failure")
    status=1
  fi
  tail -n 2 "$target.log"
done

echo "== benchmarks, one quick pass"
# Timings are printed, never asserted; a benchmark that crashes fails the run all the same.
for bench in build/bench/*_bench; do
  [ -x "$bench" ] || continue
  if ! "$bench" --benchmark_min_time=0.01 >"$bench.log" 2>&1; then
    echo "$(basename "$bench") failed:"
    tail -n 5 "$bench.log"
    status=1
  fi
  grep -E '^ratio|_BigO' "$bench.log" || true
done

echo "== summary"
for line in "${summary[@]}"; do echo "$line"; done
echo "$passed_total passed, $failed_total failed"
exit "$status"
