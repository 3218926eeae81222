#!/usr/bin/env bash
# Builds the whole tree with clang, AddressSanitizer and UndefinedBehaviorSanitizer
# in build-asan (ASAN_BUILD_DIR) and runs every test with leak detection. Leaks
# inside Qt and the system libraries are suppressed in scripts/lsan-suppressions.txt;
# everything else fails the run.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
build=${ASAN_BUILD_DIR:-build-asan}

# -O1 with line tables only: about half the compile time of a release build, and
# stacks that still name every function and line.
CC=clang CXX=clang++ cmake -S . -B "$build" -DCMAKE_BUILD_TYPE= -DCMAKE_CXX_FLAGS="-O1 -gline-tables-only" \
    -DSIDEKIN_SANITIZE=ON -DSIDEKIN_WERROR=ON >/dev/null
cmake --build "$build" -j"$(nproc)"

export QT_QPA_PLATFORM=offscreen
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-/tmp/sidekin-runtime-$(id -u)}
mkdir -p "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
export ASAN_OPTIONS=detect_leaks=1
export LSAN_OPTIONS=suppressions=$root/scripts/lsan-suppressions.txt:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1
# For the whole stack of a leak inside Qt, run the test again with
# ASAN_OPTIONS=detect_leaks=1:fast_unwind_on_malloc=0 (too slow for every run).
ctest --test-dir "$build" --output-on-failure -j"$(nproc)" -E EndsTheProgram
# A test's stand-in for the end of the process throws through Qt's signal
# delivery, which leaks the signal's arguments: those tests run without leak checks.
ASAN_OPTIONS=detect_leaks=0 ctest --test-dir "$build" --output-on-failure -R EndsTheProgram
