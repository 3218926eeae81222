#!/usr/bin/env bash
# Runs a Windows program under Wine with a time limit (a missing Qt plugin
# shows a box that waits for ever), in the project's own Wine prefix.
set -u
export WINEPREFIX=${WINEPREFIX:-${XDG_CACHE_HOME:-$HOME/.cache}/sidekin-wine}
export WINEDLLOVERRIDES="mscoree,mshtml="
export WINEDEBUG=${WINEDEBUG:--all}
# Wine makes windows, DDE's hidden ones too, only with a display: one of its own if asked.
if [ -n "${SIDEKIN_WINE_XVFB:-}" ] && [ -z "${DISPLAY:-}" ]; then
    exec xvfb-run -a "$0" "$@"
fi
exec timeout --kill-after=5 "${SIDEKIN_WINE_LIMIT:-300}" wine "$@"
