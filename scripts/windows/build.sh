#!/usr/bin/env bash
# Builds the Windows programs and their tests with mingw-w64 against Qt built
# from Debian's sources (build-qt.sh, cached per machine), runs the tests under
# Wine and makes the installer, then installs it under Wine and starts what it
# installed. Usage: scripts/windows/build.sh [build dir] (default build-win)
set -euo pipefail
cd "$(dirname "$0")/../.."
top=$PWD
scripts/need-packages.sh wine wine64 nsis xvfb xauth xdotool

qt=$(scripts/windows/build-qt.sh | tail -n 1)
[ -f "$qt/lib/cmake/Qt6/Qt6Config.cmake" ] || { echo "No Qt for Windows at $qt" >&2; exit 1; }
build=${1:-build-win}
cmake -S . -B "$build" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$qt/lib/cmake/Qt6/qt.toolchain.cmake" \
    -DQT_CHAINLOAD_TOOLCHAIN_FILE="$top/scripts/windows/mingw-toolchain.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DSIDEKIN_WERROR=ON \
    -DCMAKE_CROSSCOMPILING_EMULATOR="$top/scripts/windows/wine-run.sh" >/dev/null
cmake --build "$build" -j"$(nproc)"

# The DLLs the programs load from outside the build: Qt's and the compiler's.
runtime=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")
pthread=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libwinpthread-1.dll)")
export WINEPATH="Z:$qt/bin;Z:$runtime;Z:$pthread"
export QT_PLUGIN_PATH="Z:$qt/plugins"
export WINEPREFIX=${WINEPREFIX:-${XDG_CACHE_HOME:-$HOME/.cache}/sidekin-wine}
export WINEDLLOVERRIDES="mscoree,mshtml="
# Wine makes windows, DDE's hidden ones too, only when its session began with a
# display: one X display for the prefix's start and the whole test run.
wineserver -k 2>/dev/null || true
xvfb-run -a -s "-screen 0 1280x800x24" bash -c \
    "timeout 300 wineboot -i >/dev/null 2>&1; ctest --test-dir '$build' --output-on-failure -j$(nproc)"

(cd "$build" && cpack -G NSIS >/dev/null)
installer=$(ls "$build"/sidekin-*-win64.exe)
echo "Installer: $installer ($(du -k "$installer" | cut -f1) KiB)"
scripts/windows/installer-test.sh "$installer"
