# The program at work on the display of tools/display.sh, driven by real key events.
#
#   . tools/window.sh
#   first_start SHEET      forgets what a program before has kept; SHEET's neighbour NAME.log, if any, becomes the log
#   start PROGRAM          starts it and waits for its window; $window is the window that is looked at
#   play SHEET             does the steps of a sheet, one a line:
#                            > line        types the line and presses Enter
#                            + text        types the text
#                            @ key ...     presses the keys, as xdotool calls them
#                            ^ title       goes to the window with this title
#                            = W H         gives the window this size
#                            # comment
#   picture FILE.png       what the screen shows in the window's place, popups included
#   stop                   ends the program

scale=${QT_SCALE_FACTOR:-1}

first_start() {
    rm -rf "$home/data"
    if [ -f "${1%.txt}.log" ]; then
        mkdir -p "$home/data/quellbrook"
        cp "${1%.txt}.log" "$home/data/quellbrook/Quellbrook.log"
    fi
}

window_named() { window=$(xdotool search --onlyvisible --name "^$1\$" | head -n 1) && [ -n "$window" ]; }
window_is_active() { [ "$(xdotool getactivewindow)" = "$window" ]; }

go_to() {
    wait_for "The window $1 did not appear." window_named "$1"
    xdotool windowactivate "$window"
    wait_for "The window $1 did not become active." window_is_active
}

start() {
    "$1" &
    program_process=$!
    processes+=("$program_process")
    go_to Quellbrook
}

stop() {
    kill "$program_process"
    wait "$program_process" || true
}

type_text() { xdotool type --delay 12 -- "$1"; }
type_line() {
    type_text "$1"
    xdotool key Return
}

# A size in pixels of the program's own, which the scale factor makes larger.
resize() {
    xdotool windowsize "$window" "$(scaled "$1")" "$(scaled "$2")"
    sleep 0.3
}
scaled() { awk -v pixels="$1" -v scale="$scale" 'BEGIN { printf "%d", pixels * scale }'; }

play() {
    local step text
    while IFS= read -r step || [ -n "$step" ]; do
        text=${step:2}
        case $step in
        '> '*) type_line "$text" ;;
        '+ '*) type_text "$text" ;;
        '@ '*) xdotool key --delay 60 $text ;;
        '^ '*) go_to "$text" ;;
        '= '*) resize $text ;;
        '#'* | '') ;;
        *)
            echo "$1: no such step: $step" >&2
            exit 1
            ;;
        esac
    done <"$1"
}

picture() {
    sleep 0.5
    import -window root -crop "$(place)" +repage "$1"
}
place() {
    xwininfo -id "$window" | awk '
        /Absolute upper-left X/ { x = $NF }
        /Absolute upper-left Y/ { y = $NF }
        /Width:/ { width = $NF }
        /Height:/ { height = $NF }
        END { print width "x" height "+" x "+" y }'
}
