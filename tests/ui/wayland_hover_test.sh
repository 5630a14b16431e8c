#!/usr/bin/env bash
# Hover under headless sway: the program is an X client of its Xwayland, and a virtual pointer of sway's
# own reaches it only as Xwayland's enter, motion and leave: hovering opens the notch, leaving closes it.
# Skipped (77) where sway, Xwayland or the pointer helper is missing.
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

# One headless output, software rendering, no input devices; the first program sway starts tells
# the test Xwayland's display.
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

# The helper gives the seat a pointer and moves it as a mouse does: a warp (`seat cursor set`) lacks the
# relative motion, and Xwayland 22.1 then misses the pointer leaving its windows.
mkfifo "$work/pointer.fifo"
XDG_RUNTIME_DIR=$work/sway-run WAYLAND_DISPLAY=$wayland_socket "$pointer_helper" 1512 982 \
    <"$work/pointer.fifo" >"$work/pointer.out" 2>&1 &
pointer_pid=$!
exec 7>"$work/pointer.fifo"
for _ in $(seq 100); do grep -q ready "$work/pointer.out" && break; sleep 0.05; done
grep -q ready "$work/pointer.out" || fail "no virtual pointer: $(cat "$work/pointer.out")"
move_to() { printf 'move %d %d\nmove %d %d\n' $(($1 - 1)) "$2" "$1" "$2" >&7; }
move_to 100 900

export DISPLAY; DISPLAY=$(cat "$work/display")
export WAYLAND_DISPLAY=$work/sway-run/$wayland_socket QT_QPA_PLATFORM=xcb
export XDG_RUNTIME_DIR=$work/run
mkdir -p "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"


mark
VANTRELLE_DEMO=0 "$app" >>"$work/app.out" 2>&1 &
app_pid=$!
wait_for "launch: starting background services" 10
grep -q "overlay: the notch's own windows report the pointer" "$log" || fail "XWayland not recognised"
sleep 0.8

mark; move_to 756 16
wait_for "overlay: expand (unspecified)" 3
sleep 0.6

mark; move_to 756 200; sleep 0.2; move_to 100 900
wait_for "overlay: collapse (mouse left)"
sleep 0.6
echo "wayland hover: hovering opens the notch and leaving closes it, under sway $(sway --version | cut -d' ' -f3) and its Xwayland"
