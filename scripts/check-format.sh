#!/usr/bin/env bash
# Fails when a C++ file differs from what the committed .clang-format makes of it.
set -euo pipefail
cd "$(dirname "$0")/.."
mapfile -t files < <(git ls-files -- '*.cpp' '*.h' 2>/dev/null || find src tests tools bench fuzz -name '*.cpp' -o -name '*.h')
if ! clang-format --dry-run --Werror "${files[@]}" 2> /tmp/sidekin-format.$$; then
    grep -E '^[^ ].*(warning|error):' /tmp/sidekin-format.$$ | cut -d: -f1 | sort -u | sed 's/^/not formatted: /' >&2
    rm -f /tmp/sidekin-format.$$
    echo "Run: clang-format -i <files>" >&2
    exit 1
fi
rm -f /tmp/sidekin-format.$$
echo "Formatting: ${#files[@]} files as .clang-format wants them."
