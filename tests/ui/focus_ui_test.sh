#!/usr/bin/env bash
# The Focus tool under a private X server: the Dashboard's Pomodoro tile opens it, Start begins a
# one-minute block, and after a click outside the closed notch shows the time left with its ring.
set -euo pipefail
app=${1:?usage: focus_ui_test.sh <vantrelle binary>}
source "$(dirname "$0")/lib.sh"
start_display

mkdir -p "$XDG_CONFIG_HOME/Vantrelle"
printf '{"focusMinutes": 1, "notchOutline": false}\n' >"$XDG_CONFIG_HOME/Vantrelle/defaults.json"
start_app VANTRELLE_BACKDROP=1
sleep 0.5

shot() { import -window root "$work/$1.png"; }
# The share of neutral grey pixels (the ring's track; the backdrop is coloured) in a box w h x y.
ring_share() {
  convert "$work/$1.png" -crop "$2x$3+$4+$5" +repage \
    -fx "(abs(r-g)<0.04 && abs(g-b)<0.04 && r>0.15 && r<0.5) ? 1 : 0" -format "%[fx:mean]" info:
}
ring_box="26 20 848 6"  # right of the camera, where the trailing cell draws the ring before the digits

# 1. The notch opens on the Dashboard and its Pomodoro tile opens the Focus tool.
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
