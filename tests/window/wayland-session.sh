#!/usr/bin/env bash
# A session with the program under a Wayland compositor, by real key events: lines are answered, a name is completed, the
# manual comes and goes, the sheet is saved, and the window ends.
#
#   wayland-session.sh PROGRAM SOURCE
set -euo pipefail
. "$2/tools/display.sh"
. "$2/tools/wayland.sh"

WAYLAND_DEBUG=1 "$1" 2>"$home/protocol" &
running=$!
processes+=("$running")
type_line() { xdotool type --delay 20 -- "$1" && xdotool key Return; }
# keyboard_comes TIMES: whether a window of the program has been given the keyboard that often by now.
keyboard_comes() { [ "$(grep -c 'wl_keyboard@[0-9]*\.enter' "$home/protocol")" -ge "$1" ]; }

wait_for "The window did not get the keyboard." keyboard_comes 1
type_line '12*(3+4)'
xdotool type --delay 20 '1+asi'
xdotool key Tab
type_line '0.5'
type_line 'HELP SQRT'
wait_for "The manual did not get the keyboard." keyboard_comes 2
xdotool key Escape
wait_for "The pad did not get the keyboard back." keyboard_comes 3
xdotool key Alt_L Down Down Down Return # File, Save Document As
wait_for "The dialog did not get the keyboard." keyboard_comes 4
type_line "$home/sheet.txt"
wait_for "The sheet was not saved." test -s "$home/sheet.txt"
wait_for "The pad did not get the keyboard back from the dialog." keyboard_comes 5
type_line 'EXIT'
wait "$running"

printf '%s\n' '12*(3+4)' 84 '1+ASIN(0.5)' 1.5235987755983 'HELP SQRT' | diff - "$home/sheet.txt"
sed 1d "$XDG_DATA_HOME/quellbrook/Quellbrook.log" | diff <(cat "$home/sheet.txt" && printf 'EXIT\n\n') -
# By this name a desktop finds the window's entry and icon.
id=$(basename "$2"/packaging/*.desktop .desktop)
grep -q "set_app_id(\"$id\")" "$home/protocol"
