#!/usr/bin/env bash
# Makes the pictures of docs/operators-guide.md from the running demo: the road
# test drives the host simulator and Sidekin in a virtual display and keeps the
# screens along the way in docs/images/guide/.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh sidekin zentrovar-hostsim
scripts/cups-pdf-queue.sh >/dev/null
build=$(realpath "${BUILD_DIR:-build}")
tests/road/road-test.sh "$build/tools/hostsim/zentrovar-hostsim" "$build/src/startup/sidekin" \
    docs/images/guide
