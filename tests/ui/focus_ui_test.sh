#!/usr/bin/env bash
# The Focus tool under a private X server with a real pointer: a click on the notch opens the Dashboard,
# the Pomodoro tile opens the Focus tool, Start begins a one-minute focus block, and once the pointer
# leaves, the closed notch shows the block's time left with its ring.
set -euo pipefail
app=${1:?usage: focus_ui_test.sh <vantrelle binary>}
source "$(dirname "$0")/lib.sh"
start_display

# A fresh home whose focus blocks last one minute.
mkdir -p "$XDG_CONFIG_HOME/Vantrelle"
printf '{"focusMinutes": 1, "notchOutline": false}\n' >"$XDG_CONFIG_HOME/Vantrelle/defaults.json"
start_app VANTRELLE_BACKDROP=1
sleep 0.5

shot() { import -window root "$work/$1.png"; }
# The share of pixels in a box (w h x y) of the ring's grey track: neutral, neither black nor white. The
# backdrop behind the notch is coloured, so only the ring makes these.
ring_share() {
  convert "$work/$1.png" -crop "$2x$3+$4+$5" +repage \
    -fx "(abs(r-g)<0.04 && abs(g-b)<0.04 && r>0.15 && r<0.5) ? 1 : 0" -format "%[fx:mean]" info:
}
ring_box="26 20 848 6"  # right of the camera, where the trailing cell draws the ring before the digits

# 1. No ring while nothing runs; the notch opens on the Dashboard and its Pomodoro tile opens the Focus tool.
shot idle
share=$(ring_share idle $ring_box)
(( $(echo "$share < 0.01" | bc -l) )) || fail "a ring beside the notch before any timer runs ($share)"
click_at 756 16
wait_for "overlay: expand (unspecified)"
sleep 0.8
shot dashboard
click_at 876 152  # the Pomodoro tile, third in the first row
sleep 0.8
shot focus

# 2. Start: a one-minute focus block runs.
click_at 455 193  # Start, beside the big ring
wait_for "pomodoro: running work 60s"

# 3. A click outside closes the panel; the closed notch shows the time left with its ring.
sleep 0.3; click_at 60 900
wait_for "overlay: collapse (click outside)"
sleep 1.2
shot collapsed
share=$(ring_share collapsed $ring_box)
(( $(echo "$share > 0.03" | bc -l) )) || fail "no ring right of the notch ($share)"
[[ -n "${VANTRELLE_UI_SHOTS:-}" ]] && cp "$work/dashboard.png" "$work/focus.png" "$work/collapsed.png" "$VANTRELLE_UI_SHOTS/"

echo "ui: the Focus tool starts a one-minute block with the pointer and the closed notch shows its ring"
