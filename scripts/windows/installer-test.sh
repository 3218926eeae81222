#!/usr/bin/env bash
# Installs the Windows installer silently into a fresh Wine prefix and starts
# what it installed: orqini reads a profile file (Qt Core and the run-time
# libraries), and sidekin, started as the host would without a host, shows
# its start-up box in a virtual display (Qt Widgets and the platform plugin).
# Usage: scripts/windows/installer-test.sh INSTALLER.exe
set -euo pipefail
installer=$(realpath "$1")
work=$(mktemp -d)
trap 'WINEPREFIX="$work/prefix" wineserver -k 2>/dev/null || true; rm -rf "$work"' EXIT
export WINEPREFIX="$work/prefix" WINEDLLOVERRIDES="mscoree,mshtml=" WINEDEBUG=-all
unset WINEPATH QT_PLUGIN_PATH
timeout 300 wineboot -i >/dev/null 2>&1 || true
timeout 300 wine "$installer" /S '/D=C:\Sidekin' >/dev/null 2>&1
bin="$WINEPREFIX/drive_c/Sidekin/bin"
for f in sidekin.exe zentrovar-hostsim.exe orqini.exe Qt6Widgets.dll platforms/qwindows.dll; do
    [ -f "$bin/$f" ] || { echo "installer-test: $f was not installed" >&2; exit 1; }
done

printf '[Operators]\r\nOperator1=Ana\r\n' > "$work/ORQ.INI"
got=$(timeout 60 wine "$bin/orqini.exe" get "Z:$work/ORQ.INI" Operators Operator1 2>/dev/null | tr -d '\r')
[ "$got" = "Ana" ] || { echo "installer-test: orqini answered '$got'" >&2; exit 1; }

xvfb-run -a -s "-screen 0 1024x768x24" bash -c '
    timeout 120 wine "$1/sidekin.exe" >/dev/null 2>&1 &
    for i in $(seq 1 100); do
        if xdotool search --name "VB DDE Error" >/dev/null 2>&1; then exit 0; fi
        sleep 1
    done
    exit 1' _ "$bin" || { echo "installer-test: sidekin showed no start-up box" >&2; exit 1; }
echo "installer-test: installed, orqini and sidekin start"
