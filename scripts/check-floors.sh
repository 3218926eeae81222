#!/usr/bin/env bash
# Fails when a file under src/ includes a header from a folder on a higher
# floor than its own. The floors, lowest first; a folder not listed fails too.
set -euo pipefail
cd "$(dirname "$0")/.."
floors=(
    "src/core"        # Qt Core only: platform, texts, state, grid, frames, names, status words
    "src/host"        # the host link and its faces
    "src/widgets"     # widgets that know no form
    "src/ui"          # the forms' design
    "src/procedures"  # what the forms and the host do
    "src/wiring"      # events to procedures
    "src/startup"     # Main and the executable
)
floorOf() {
    local i
    for i in "${!floors[@]}"; do
        case "$1/" in "${floors[$i]}"/*) echo "$i"; return ;; esac
    done
    echo "none"
}

declare -A headerAt=()
while read -r h; do
    base=${h##*/}
    headerAt[$base]+="$h "
done < <(find src -name '*.h' | sort)

status=0
while read -r file; do
    own=$(floorOf "$(dirname "$file")")
    if [ "$own" = none ]; then
        echo "$file: its folder is on no floor (scripts/check-floors.sh)" >&2
        status=1
        continue
    fi
    while read -r included; do
        candidates=${headerAt[${included##*/}]:-}
        [ -n "$candidates" ] || continue  # a Qt or system header
        for h in $candidates; do
            case "$h" in */"$included") ;; *) continue ;; esac
            theirs=$(floorOf "$(dirname "$h")")
            if [ "$theirs" != none ] && [ "$theirs" -gt "$own" ]; then
                echo "$file includes $h, a floor above its own" >&2
                status=1
            fi
        done
    done < <(sed -n 's/^#include "\([^"]*\)".*/\1/p' "$file")
done < <(find src -name '*.cpp' -o -name '*.h' | sort)
[ $status -eq 0 ] && echo "Folders: no file includes a header from a floor above its own."
exit $status
