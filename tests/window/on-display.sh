#!/usr/bin/env bash
# Runs a test of the window on a virtual display with a window manager, where focus and popups are real.
#
#   on-display.sh SOURCE TEST [ARGUMENTS...]
set -euo pipefail
. "$1/tools/display.sh"
shift
"$@"
