#!/usr/bin/env bash
# Builds the libFuzzer targets of fuzz/ with clang in their own build folder and
# runs each for FUZZ_SECONDS (default 20) from its committed seed corpus. Any
# crash, sanitizer report or broken check fails the script; the input that
# found it is kept in BUILD/findings/. See fuzz/README.md for longer runs.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)
build=$root/${FUZZ_BUILD_DIR:-build-fuzz}
seconds=${FUZZ_SECONDS:-20}
targets=(fuzz_profile_read fuzz_profile_write fuzz_frame_reader fuzz_conversions
         fuzz_command_line fuzz_status_line)

CC=clang CXX=clang++ cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DSIDEKIN_FUZZ=ON -DBUILD_TESTING=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" $(printf -- '--target %s ' "${targets[@]}")

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$build/findings"
for t in "${targets[@]}"; do
    echo "== $t, ${seconds} s"
    mkdir -p "$work/$t"
    # New inputs go to the scratch folder; the committed seeds stay as they are.
    status=0
    (cd "$work" && "$build/fuzz/$t" -max_total_time="$seconds" -print_final_stats=1 \
        -artifact_prefix="$build/findings/$t-" "$work/$t" "$root/fuzz/corpus/$t") \
        >"$work/$t.log" 2>&1 || status=$?
    grep -E '^stat::(number_of_executed_units|average_exec_per_sec)' "$work/$t.log" || true
    if [ "$status" -ne 0 ]; then
        grep -E -A20 'ERROR|SUMMARY|written to' "$work/$t.log" >&2 || tail -40 "$work/$t.log" >&2
        echo "$t found a fault (exit status $status)" >&2
        exit 1
    fi
done
echo "fuzz smoke: no findings"
