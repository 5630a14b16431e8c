#!/usr/bin/env bash
# The real program under a private X server with a real pointer: hover, leaving, a click, a Claude Code
# alert, the dock and the settings window. When each of these happens is proven on virtual time in the
# C++ tests.
set -euo pipefail
app=${1:?usage: notch_ui_test.sh <vantrelle binary>}
source "$(dirname "$0")/lib.sh"
start_display
# A runtime folder of its own, so the single-instance lock is this test's alone.
export XDG_RUNTIME_DIR=$work/run
mkdir -p "$XDG_RUNTIME_DIR" "$XDG_CONFIG_HOME/Vantrelle" && chmod 700 "$XDG_RUNTIME_DIR"
# A hover delay of two seconds: a click that opens well before it is the click's doing.
echo '{"hoverDelay": 2.0}' >"$XDG_CONFIG_HOME/Vantrelle/defaults.json"
start_app VANTRELLE_BACKDROP=1
sleep 0.5

# The times measured start at arrival: step onto the point at once.
move_to() { xdotool mousemove $(($1 - 1)) "$2" mousemove_relative 1 0; }
pixel() { import -window root "$work/shot.png"; convert "$work/shot.png" -format "%[fx:int(255*r)],%[fx:int(255*g)],%[fx:int(255*b)]" -crop "1x1+$1+$2" info:; }
is_black() { [[ "$(pixel "$1" "$2")" == "0,0,0" ]]; }
open_by_click() { sleep 0.6; mark; move_to 756 16; xdotool click 1; wait_for "overlay: expand (unspecified)" 1.5; }

# 1. The simulated notch is drawn at the top centre, and nothing else covers the desktop.
is_black 756 12 || fail "collapsed notch not drawn at the top centre"
is_black 756 120 && fail "the collapsed panel covers the desktop below the notch"
import -window root "$work/collapsed.png"

# 2. Hover opens; the panel is drawn, the desktop beside it is not covered.
mark; move_to 756 16
wait_for "overlay: expand (unspecified)" 5
sleep 0.6
is_black 756 200 || fail "expanded panel not drawn"
is_black 30 500 && fail "the desktop beside the panel is covered"

# 3. Leaving closes.
mark; move_to 100 700
wait_for "overlay: collapse (mouse left)" 3
sleep 0.6
is_black 756 200 && fail "panel still drawn after closing"

# 4. Claude Code asks for approval: its hook appends a payload, and the closed notch shows the alert.
events=$XDG_DATA_HOME/Vantrelle/claude-events.jsonl
sleep 0.6; mark
printf '%s\n' '{"session_id":"e2e-1","transcript_path":"/nonexistent/e2e.jsonl","cwd":"/home/dev/api","hook_event_name":"Notification","message":"Claude needs your permission to use Bash","notification_type":"permission_prompt"}' >>"$events"
wait_for "claude alerts: permission_prompt in api"
sleep 0.6
is_black $((756 + 92 + 40)) 12 || fail "the notch did not widen for the alert"
import -window root "$work/alert.png"
[[ -n "${VANTRELLE_UI_SHOTS:-}" ]] && cp "$work/collapsed.png" "$work/alert.png" "$VANTRELLE_UI_SHOTS/"

# On this 1512-pixel screen the panel is 998 wide around x=756 and 340 high; the dock is centred 12
# below it; its items are 40 apart, calc the tenth of seventeen.
dock_y=$((340 + 12 + 23))
calc_x=$((756 + 40))
header_y=$((32 + 8 + 20))
gear_x=$((756 + 499 - 20 - 11 - 2 * 30))   # close, then "more" (no tray here), then the gear

# 5. A click on a dock icon, then leaving: the panel still closes (the click's release is not lost).
open_by_click
sleep 0.5; move_to "$calc_x" "$dock_y"; xdotool click 1
sleep 0.3; mark; move_to 100 700
wait_for "overlay: collapse (mouse left)" 3

# 6. The gear opens the settings window.
open_by_click
sleep 0.5; mark; move_to "$gear_x" "$header_y"; xdotool click 1
wait_for "settings: window shown"
sleep 1
settings_window=$(xdotool search --name "Vantrelle Settings" | head -1)
[[ -n "$settings_window" ]] || fail "no settings window"
[[ -n "${VANTRELLE_UI_SHOTS:-}" ]] && import -window "$settings_window" "$VANTRELLE_UI_SHOTS/settings-window.png"
echo "ui: hover, leave, a click, a Claude Code alert, the dock and the settings window behave"
