#!/usr/bin/env bash
# Runs a test of the window under a Wayland compositor.
#
#   on-wayland.sh SOURCE TEST [ARGUMENTS...]
set -euo pipefail
. "$1/tools/display.sh"
. "$1/tools/wayland.sh"
shift
"$@"
