#!/usr/bin/env bash
# Sets up, builds (warnings as errors) and runs every check and test: the
# format and library-graph checks, the suite, a short fuzz of every fuzz
# target, the suite again under the sanitizers (clang), then the Windows build,
# its tests under Wine and its installer. Widget tests run
# offscreen; the X11 tests start their own Xvfb. The print test prints through a
# CUPS PDF queue set up here; if that fails, the test says so.
set -euo pipefail
cd "$(dirname "$0")/.."
export SIDEKIN_WERROR=ON
scripts/setup.sh
scripts/check-format.sh
scripts/check-graph.sh "${BUILD_DIR:-build}"
scripts/check-floors.sh
export SIDEKIN_PRINT_OUT=${SIDEKIN_PRINT_OUT:-/var/spool/sidekin-pdf}
scripts/cups-pdf-queue.sh "$SIDEKIN_PRINT_OUT" || echo "No CUPS PDF queue: the print test will fail." >&2
export QT_QPA_PLATFORM=offscreen
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-/tmp/sidekin-runtime-$(id -u)}
mkdir -p "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
ctest --test-dir "${BUILD_DIR:-build}" --output-on-failure -j"$(nproc)"
# Every fuzz target for a few seconds from its seeds: any finding fails the run.
FUZZ_SECONDS=${FUZZ_SECONDS:-10} scripts/fuzz-smoke.sh
# The whole suite once more, built with clang under AddressSanitizer and
# UndefinedBehaviorSanitizer, leaks included.
scripts/sanitize.sh
# The Windows programs: Qt for Windows built once per machine (the first time
# takes about half an hour), the cross build, its tests under Wine, the
# installer, installed and started under Wine.
scripts/windows/build.sh "${WIN_BUILD_DIR:-build-win}"
