#!/usr/bin/env bash
# Runs a Windows program under Wine with a time limit (a missing Qt plugin
# shows a box that waits for ever), in the project's own Wine prefix.
set -u
export WINEPREFIX=${WINEPREFIX:-${XDG_CACHE_HOME:-$HOME/.cache}/sidekin-wine}
export WINEDLLOVERRIDES="mscoree,mshtml="
export WINEDEBUG=${WINEDEBUG:--all}
exec timeout --kill-after=5 "${SIDEKIN_WINE_LIMIT:-300}" wine "$@"
