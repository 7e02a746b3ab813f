# A Wayland compositor in a window of the virtual display, so that it has a keyboard, a pointer and a picture.
#
#   . tools/display.sh
#   . tools/wayland.sh     sets WAYLAND_DISPLAY and QT_QPA_PLATFORM; xdotool drives what runs there

cat >"$home/weston.ini" <<'INI'
[core]
idle-time=0
[shell]
panel-position=none
locking=false
animation=none
close-animation=none
startup-animation=none
[input-method]
path=
INI
# Outside the window to come: the compositor learns where the pointer is when it enters.
xdotool mousemove 0 0
weston --backend=x11-backend.so --use-pixman --config="$home/weston.ini" --width=980 --height=760 --socket=wayland-test \
    --log="$home/weston.log" >/dev/null 2>&1 &
processes+=($!)
export WAYLAND_DISPLAY=wayland-test QT_QPA_PLATFORM=wayland

compositor_is_active() { [ "$(xdotool getactivewindow getwindowname)" = "Weston Compositor - screen0" ]; }
wait_for "The compositor did not start." test -S "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY"
wait_for "The compositor's window did not become active." compositor_is_active
