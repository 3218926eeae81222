#!/usr/bin/env bash
# Installs the Windows installer silently into a fresh Wine prefix and uses what
# it installed: orqini reads a profile file; the installed simulator starts the
# installed sidekin as the host would, in a virtual display; after the start-up
# box sidekin links its items and asks for "ShowORQ$", and the host's "00"
# ends it with status 0.
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

# Wine's desktop process was started without a display by wineboot: end it, so
# the programs below get one.
wineserver -k 2>/dev/null || true
xvfb-run -a -s "-screen 0 1024x768x24" bash -c '
    set -u
    work=$1
    mkfifo "$work/control"
    timeout 180 wine "C:\\Sidekin\\bin\\zentrovar-hostsim.exe" --root "C:\\demo" --write-ini \
        --program-dir "C:\\demo\\program" --log "Z:$work/frames.log" \
        --launch "C:\\Sidekin\\bin\\sidekin.exe" <"$work/control" >"$work/host.out" 2>&1 &
    exec 7>"$work/control"
    fail() { echo "installer-test: $1" >&2; cat "$work/host.out" >&2; echo quit >&7; exit 1; }
    box=""
    for _ in $(seq 1 120); do
        box=$(xdotool search --name "VB DDE Error" 2>/dev/null | head -n 1) && [ -n "$box" ] && break
        sleep 1
    done
    [ -n "$box" ] || fail "sidekin showed no start-up box"
    xdotool windowfocus --sync "$box" key Return
    for _ in $(seq 1 60); do
        grep -q "Request	CPNOWAIT	ShowORQ\\$" "$work/frames.log" 2>/dev/null && break
        sleep 1
    done
    grep -q "Request	CPNOWAIT	ShowORQ\\$" "$work/frames.log" 2>/dev/null ||
        fail "sidekin did not ask the host for ShowORQ\$"
    echo "show 00" >&7
    for _ in $(seq 1 30); do
        grep -q "ended with status" "$work/host.out" && break
        sleep 1
    done
    grep -q "sidekin.exe ended with status 0" "$work/host.out" || fail "sidekin did not end with status 0 on 00"
    echo quit >&7
    ' _ "$work"
echo "installer-test: installed; orqini reads, the simulator starts sidekin, links and ends it"
