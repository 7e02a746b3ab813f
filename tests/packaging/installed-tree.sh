#!/usr/bin/env bash
# Installs a build and looks at it as a desktop does: the files, the validators' word on them, and whether the window
# of the installed program says the class by which its entry and icon are found.
#
#   installed-tree.sh BUILD SOURCE VERSION
set -euo pipefail
build=$1 source=$2 version=$3
. "$source/tools/display.sh"

root=$home/root
cmake --install "$build" --prefix "$root/usr" >/dev/null
(cd "$root" && find . -type f -printf '%m %P\n' | LC_ALL=C sort -k 2) | diff "$source/tests/packaging/installed-tree.txt" -

entry=$(echo "$root"/usr/share/applications/*.desktop)
metainfo=$(echo "$root"/usr/share/metainfo/*.metainfo.xml)
page=$root/usr/share/man/man1/quellbrook.1
desktop-file-validate "$entry"
appstreamcli validate --no-net --pedantic --strict "$metainfo"
appstreamcli validate-tree --no-net --strict "$root/usr"
mandoc -T lint "$page"

# says WHAT PATTERN FILE: whether a line of the file matches.
says() {
    grep -Eq "$2" "$3" && return
    echo "$3 does not say $1" >&2
    exit 1
}
id=$(basename "$entry" .desktop)
program=$root/usr/bin/quellbrook
says "which program it is" "^Exec=$(basename "$program")$" "$entry"
says "the icon that is installed" "^Icon=$id$" "$entry"
says "the version that is built" "<release version=\"$version\"" "$metainfo"
says "the version that is built" "^\.TH .*\"Quellbrook $version\"" "$page"

"$program" &
running=$!
processes+=("$running")
find_window() { window=$(xdotool search --onlyvisible --name '^Quellbrook$' | head -n 1) && [ -n "$window" ]; }
wait_for "The window did not appear." find_window
xprop -id "$window" WM_CLASS >"$home/names"
class=$(sed -n 's/^StartupWMClass=//p' "$entry")
says "the class that the entry names" "^WM_CLASS.*\"$class\"$" "$home/names"

# The log of its empty pad shows that it found the data directory of the program's name, and none of the entry's.
takes_requests() { (($(sed -n 's/^SigCgt:[[:space:]]*/0x/p' "/proc/$running/status") >> 14 & 1)); } # SIGTERM
wait_for "The program takes no request to end." takes_requests
kill "$running"
wait "$running"
[ -e "$XDG_DATA_HOME/quellbrook/Quellbrook.log" ]
