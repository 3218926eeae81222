#!/usr/bin/env bash
# Prints the demo run table to PDF (print_bench --demo) and turns its first page
# into docs/images/print-page1.png for docs/printing.md.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh print_bench
build=${BUILD_DIR:-build}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$build/bench/print_bench" --demo "$work/table.pdf"
mkdir -p docs/images
pdftoppm -r 80 -png -f 1 -l 1 -singlefile "$work/table.pdf" docs/images/print-page1
echo "docs/images/print-page1.png"
