#!/usr/bin/env bash
# Sets up, builds and starts the front end the way the host starts it.
# Without a display it runs in a virtual one for a few seconds.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
build=$(realpath "${BUILD_DIR:-build}")
demo=$(realpath docs/examples)
export ZENTROVAR_CONFIG_DIR=${ZENTROVAR_CONFIG_DIR:-$demo}
line="0|ZenDemo|\"$demo/\"|1|0"
if [ -n "${DISPLAY:-}" ]; then
    exec "$build/src/app/startup/sidekin" "$line"
fi
echo "No display: running in a virtual one for 5 seconds."
timeout 5 xvfb-run -a "$build/src/app/startup/sidekin" "$line" || true
