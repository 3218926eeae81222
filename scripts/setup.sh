#!/usr/bin/env bash
# Installs what the build needs (Debian 12) and configures and builds the project
# (or only the targets named as arguments). Cheap to repeat: packages already
# present are not fetched again, and the build is incremental.
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(cmake g++ make pkg-config qt6-base-dev libxcb1-dev libgtest-dev
          fonts-liberation fonts-noto-cjk xvfb xauth poppler-utils clang-format clang
          libclang-rt-14-dev cups printer-driver-cups-pdf
          xdotool x11-utils imagemagick)
scripts/need-packages.sh "${packages[@]}"

build=${BUILD_DIR:-build}
options=(-DCMAKE_BUILD_TYPE=RelWithDebInfo)
# Only when asked: the demo after a test run reuses the test build as it is.
[ -n "${SIDEKIN_WERROR:-}" ] && options+=(-DSIDEKIN_WERROR="$SIDEKIN_WERROR")
cmake -S . -B "$build" "${options[@]}" >/dev/null
targets=()
for t in "$@"; do targets+=(--target "$t"); done
cmake --build "$build" -j"$(nproc)" "${targets[@]}"
