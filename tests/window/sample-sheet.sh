#!/usr/bin/env bash
# The sample sheet, typed by real key events into the program on a virtual display with a window manager.
#
#   sample-sheet.sh PROGRAM SOURCE
set -euo pipefail
picture=$(mktemp --suffix=.png)
trap 'rm -f "$picture"' EXIT
"$2/tools/demo" "$1" "$2/tools/sample-sheet.txt" "$picture" | diff "$2/tests/window/sample-sheet.expected" -
[ -s "$picture" ]
