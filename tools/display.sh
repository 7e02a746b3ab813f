# A virtual display with a window manager, and a home of its own for what runs there; all of it ends with the script.
#
#   screen=1920x1400x24    if another size than 1000x800 is wanted
#   . tools/display.sh     sets DISPLAY, $home, the XDG directories and QT_QPA_PLATFORM
#   wait_for WHAT COMMAND...

home=$(mktemp -d)
processes=()
end() {
    for process in "${processes[@]}"; do kill "$process" 2>/dev/null || true; done
    wait 2>/dev/null || true
    rm -rf "$home"
}
trap end EXIT

# wait_for WHAT COMMAND...: until the command succeeds, twenty seconds at most.
wait_for() {
    local what=$1
    shift
    for _ in $(seq 200); do
        "$@" >/dev/null 2>&1 && return
        sleep 0.1
    done
    echo "$what" >&2
    exit 1
}

# A display number that nobody has: Xvfb chooses it and says which.
Xvfb -displayfd 3 -screen 0 "${screen:-1000x800x24}" -nolisten tcp 3>"$home/display" 2>/dev/null &
processes+=($!)
wait_for "No virtual display could be started." test -s "$home/display"
DISPLAY=":$(cat "$home/display")"
mkdir -m 700 "$home/runtime"
export DISPLAY XDG_RUNTIME_DIR="$home/runtime" QT_QPA_PLATFORM=xcb
export XDG_DATA_HOME="$home/data" XDG_CONFIG_HOME="$home/config" XDG_CACHE_HOME="$home/cache"

wait_for "The virtual display does not answer." xprop -root
# A window that is mapped while the manager starts is overlooked by it: its own word counts that it has started. One that
# ends at its start is started again.
manager=
manager_runs() {
    if ! kill -0 "$manager" 2>/dev/null; then
        rm -f "$home/managed"
        openbox --startup "touch $home/managed" >/dev/null 2>&1 &
        manager=$!
        processes+=("$manager")
    fi
    test -f "$home/managed"
}
wait_for "The window manager did not start." manager_runs
