#!/usr/bin/env bash
# Sets up, builds and starts the demo: the host simulator with its demo
# instrument, and Sidekin started by it the way the host starts it. With a
# display the simulator opens its window and Sidekin takes its place inside it.
# Control lines typed here go to the simulator (see docs/host-simulator.md),
# e.g. "show 01" hides the window, "show 00" ends Sidekin, "quit" ends the demo.
# Without a display the demo runs in a virtual one for a short while.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh sidekin zentrovar-hostsim orqini
build=$(realpath "${BUILD_DIR:-build}")
demo=${SIDEKIN_DEMO_DIR:-/tmp/sidekin-demo-$(id -u)}
mkdir -p "$demo/config"
export ZENTROVAR_CONFIG_DIR="$demo/config"
# A terminal started as root outside a login session has none; Qt asks for it.
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-/tmp/sidekin-runtime-$(id -u)}
mkdir -p "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"

simulator=("$build/tools/hostsim/zentrovar-hostsim" --root "$demo/host" --write-ini
           --run-seconds "${DEMO_RUN_SECONDS:-20}" --log "$demo/frames.log"
           --program-dir "$demo/host/program" --launch "$build/src/startup/sidekin")
echo "Host frames are logged to $demo/frames.log"
if [ -n "${DISPLAY:-}" ]; then
    exec "${simulator[@]}"
fi
echo "No display: running the demo in a virtual display for ${DEMO_SECONDS:-15} seconds."
timeout "${DEMO_SECONDS:-15}" xvfb-run -a "${simulator[@]}" </dev/null || true
echo "Frames the host received:"
cat "$demo/frames.log"
