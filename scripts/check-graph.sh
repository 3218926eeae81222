#!/usr/bin/env bash
# Fails when the project's library graph has a cycle, or when a core library
# reaches a widget, screen or socket library. Reads the graph CMake writes.
# Usage: scripts/check-graph.sh [build dir] (default: build)
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-${BUILD_DIR:-build}}
core=(sidekin_platform sidekin_nls sidekin_app sidekin_flexgrid sidekin_link_protocol
      sidekin_host_commands sidekin_names sidekin_translation sidekin_status_core
      sidekin_runtable_files)
forbidden='^Qt6::(Gui|Widgets|Network|PrintSupport)$'

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake -S . -B "$build" --graphviz="$work/graph.dot" >/dev/null

# "from to" per edge, by target name.
awk '/^[ \t]*"node[0-9]+" -> "node[0-9]+"/ { print $1, $3 }' "$work/graph.dot" > "$work/raw"
awk '
    FNR == NR && /^[ \t]*"node[0-9]+" \[ label = / {
        match($0, /label = "[^"]*"/); names[$1] = substr($0, RSTART + 9, RLENGTH - 10); next }
    FNR != NR { print names[$1], names[$2] }
' "$work/graph.dot" "$work/raw" > "$work/edges"

status=0
if ! tsort "$work/edges" > /dev/null 2> "$work/tsort"; then
    echo "The library graph has a cycle:" >&2
    sed "s|^tsort: $work/edges: ||" "$work/tsort" | sort -u | head -20 >&2
    status=1
fi

reach() {  # every target reachable from $1
    local -A seen=()
    local queue=("$1") next
    while ((${#queue[@]})); do
        next=${queue[0]}; queue=("${queue[@]:1}")
        while read -r to; do
            [[ -n ${seen[$to]:-} ]] && continue
            seen[$to]=1; queue+=("$to"); echo "$to"
        done < <(awk -v from="$next" '$1 == from { print $2 }' "$work/edges")
    done
}
for lib in "${core[@]}"; do
    grep -q "^$lib " "$work/edges" || { echo "Core library $lib is not in the graph" >&2; status=1; continue; }
    bad=$(reach "$lib" | grep -E "$forbidden" || true)
    if [ -n "$bad" ]; then
        echo "Core library $lib reaches $(echo $bad)" >&2
        status=1
    fi
done
[ $status -eq 0 ] && echo "Library graph: no cycle; core libraries link Qt Core only."
exit $status
