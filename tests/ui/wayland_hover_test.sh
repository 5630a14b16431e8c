#!/usr/bin/env bash
# Hover under a real Wayland compositor: headless sway runs Xwayland, the program runs on it as an X
# client, and a pointer device of sway's own (a virtual one: no XTest, nothing synthesised on the X side)
# reaches it only as Xwayland's enter, motion and leave. Hovering the notch opens it, leaving closes it,
# a click opens it at once.
# Skipped (status 77) where sway, Xwayland or the pointer helper is missing.
set -euo pipefail
app=${1:?usage: wayland_hover_test.sh <vantrelle binary> <virtual_pointer binary or "none">}
pointer_helper=${2:?usage: wayland_hover_test.sh <vantrelle binary> <virtual_pointer binary or "none">}

skip() { echo "SKIP: $*"; exit 77; }
for tool in sway Xwayland; do
    command -v "$tool" >/dev/null || skip "$tool is not installed (Debian packages sway and xwayland)"
done
[[ -x "$pointer_helper" ]] || skip "the virtual pointer helper was not built (Debian package libwayland-dev)"
# sway refuses to start as root; in a user namespace it runs as an ordinary user, with no other rights.
as_user=()
if [[ $(id -u) -eq 0 ]]; then
    as_user=(unshare --user --map-user=1000 --map-group=1000)
    "${as_user[@]}" true 2>/dev/null || skip "running as root and no user namespace is available for sway"
fi

source "$(dirname "$0")/lib.sh"
trap 'exec 7>&-; kill ${app_pid:-} ${pointer_pid:-} ${sway_pid:-} 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$work"' EXIT
fail() {
    { echo "FAIL: $*"; echo "--- log"; cat "$log" 2>/dev/null; echo "--- sway"; tail -n 30 "$work/sway.log"; } >&2
    exit 1
}

# One headless output the size of a 14-inch laptop screen, software rendering (no /dev/dri here), no
# input devices, Xwayland on; the first program sway starts tells the test Xwayland's display.
mkdir -p "$work/sway-run" && chmod 700 "$work/sway-run"
cat >"$work/sway.config" <<EOF
xwayland enable
output HEADLESS-1 mode 1512x982 position 0 0
exec sh -c 'echo "\$DISPLAY" >"$work/display.tmp" && mv "$work/display.tmp" "$work/display"'
EOF
env -u DISPLAY -u WAYLAND_DISPLAY XDG_RUNTIME_DIR="$work/sway-run" WLR_BACKENDS=headless \
    WLR_LIBINPUT_NO_DEVICES=1 WLR_RENDERER=pixman "${as_user[@]}" sway -c "$work/sway.config" \
    >"$work/sway.log" 2>&1 &
sway_pid=$!
for _ in $(seq 200); do [[ -s "$work/display" ]] && break; sleep 0.05; done
[[ -s "$work/display" ]] || fail "sway did not start"
wayland_socket=$(cd "$work/sway-run" && ls wayland-* | grep -v lock | head -1)

# Without input devices the seat has no pointer, so Xwayland gets no wl_pointer at all. The helper adds
# one and moves it as a mouse does; sway's `seat cursor set` would only warp the cursor, without the
# relative motion a device sends, and Xwayland 22.1 then misses the pointer leaving its windows.
mkfifo "$work/pointer.fifo"
XDG_RUNTIME_DIR=$work/sway-run WAYLAND_DISPLAY=$wayland_socket "$pointer_helper" 1512 982 \
    <"$work/pointer.fifo" >"$work/pointer.out" 2>&1 &
pointer_pid=$!
exec 7>"$work/pointer.fifo"
for _ in $(seq 100); do grep -q ready "$work/pointer.out" && break; sleep 0.05; done
grep -q ready "$work/pointer.out" || fail "no virtual pointer: $(cat "$work/pointer.out")"
move_to() { printf 'move %d %d\nmove %d %d\n' $(($1 - 1)) "$2" "$1" "$2" >&7; }
click() { printf 'press\nrelease\n' >&7; }
move_to 100 900

# The program as a Wayland session's X client sees it: Xwayland's display, the session's Wayland socket.
export DISPLAY; DISPLAY=$(cat "$work/display")
export WAYLAND_DISPLAY=$work/sway-run/$wayland_socket QT_QPA_PLATFORM=xcb
export XDG_RUNTIME_DIR=$work/run
mkdir -p "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"

# A hover delay of a second: a click that opens well before it is the click's doing.
mkdir -p "$XDG_CONFIG_HOME/Vantrelle"
echo '{"hoverDelay": 1.0}' >"$XDG_CONFIG_HOME/Vantrelle/defaults.json"

# With grim, the compositor's own picture of the screen shows where the panel is drawn.
screenshots=0
command -v grim >/dev/null && command -v convert >/dev/null && screenshots=1
panel_drawn() {
    XDG_RUNTIME_DIR=$work/sway-run WAYLAND_DISPLAY=$wayland_socket grim "$work/shot.png"
    [[ "$(convert "$work/shot.png" -format "%[fx:int(255*r)],%[fx:int(255*g)],%[fx:int(255*b)]" \
        -crop 1x1+756+200 info:)" == "0,0,0" ]]
}

mark
VANTRELLE_DEMO=0 "$app" >>"$work/app.out" 2>&1 &
app_pid=$!
wait_for "launch: starting background services" 10
grep -q "overlay: the notch's own windows report the pointer" "$log" || fail "XWayland not recognised"
sleep 0.8
if ((screenshots)) && panel_drawn; then fail "the panel is drawn before a hover"; fi

mark; move_to 756 16
wait_for "overlay: expand (unspecified)" 3
sleep 0.6
if ((screenshots)) && ! panel_drawn; then fail "sway shows no open panel"; fi

mark; move_to 756 200; sleep 0.2; move_to 100 900
wait_for "overlay: collapse (mouse left)"
sleep 0.6
if ((screenshots)) && panel_drawn; then fail "the panel is still drawn after leaving"; fi

mark; move_to 756 16; click
wait_for "overlay: expand (unspecified)" 0.6
echo "wayland hover: hovering opens the notch, leaving closes it, a click opens it at once, under sway $(sway --version | cut -d' ' -f3) and its Xwayland"
