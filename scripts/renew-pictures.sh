#!/usr/bin/env bash
# Writes the expected pictures of tests/pictures anew from the program as it is.
# Look at each changed picture before committing it, and say why in the commit.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${BUILD_DIR:-build}
cmake --build "$build" --target test_pictures >/dev/null
export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-/tmp/sidekin-runtime-$(id -u)}
mkdir -p "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
rm -f tests/pictures/expected/*.new.png tests/pictures/expected/*.diff.png
SIDEKIN_RENEW_PICTURES=1 "$build/tests/pictures/test_pictures"
git status --short tests/pictures/expected
