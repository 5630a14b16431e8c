#!/usr/bin/env bash
# Drives the real program under a private X server with a real pointer and keyboard: hover opens after
# the hover delay, leaving closes 0.35 s later, a click opens at once, Escape closes, a click outside
# closes; and the screen shows the shell where it should.
set -euo pipefail
app=${1:?usage: notch_ui_test.sh <vantrelle binary>}
source "$(dirname "$0")/lib.sh"
start_display
# A runtime folder of its own, so the single-instance lock is this test's alone.
export XDG_RUNTIME_DIR=$work/run
mkdir -p "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
start_app VANTRELLE_BACKDROP=1
sleep 0.5

now() { date +%s.%N; }
seconds_of() {  # a log stamp HH:MM:SS.mmm as seconds of the day
  IFS=: read -r h m s <<<"$1"; echo "$((10#$h * 3600 + 10#$m * 60)) + $s" | bc -l
}
today_seconds() { local t; t=$(date +%H:%M:%S.%N); seconds_of "${t:0:12}"; }
# Raw pointer events come only from real motion: jump next to the point, then step onto it at once (the
# times measured here start at arrival).
move_to() { xdotool mousemove $(($1 - 1)) "$2" mousemove_relative 1 0; }

lines_before=0
mark() { lines_before=$(wc -l <"$log"); }
# Waits for a new log line containing $1; prints its time of day in seconds.
wait_for() {
  local text=$1 limit=${2:-3}
  local deadline; deadline=$(echo "$(now) + $limit" | bc -l)
  while (( $(echo "$(now) < $deadline" | bc -l) )); do
    local line; line=$(tail -n +$((lines_before + 1)) "$log" | grep -m1 -F "$text" || true)
    if [[ -n "$line" ]]; then seconds_of "${line%% *}"; return 0; fi
    sleep 0.02
  done
  fail "no '$text' within ${limit}s"
}
expect_at_least() { (( $(echo "$1 >= $2" | bc -l) )) || fail "$3: $1 s, expected at least $2 s"; }
expect_below() { (( $(echo "$1 < $2" | bc -l) )) || fail "$3: $1 s, expected below $2 s"; }

pixel() { import -window root "$work/shot.png"; convert "$work/shot.png" -format "%[fx:int(255*r)],%[fx:int(255*g)],%[fx:int(255*b)]" -crop "1x1+$1+$2" info:; }
is_black() { [[ "$(pixel "$1" "$2")" == "0,0,0" ]]; }

# 1. The simulated notch is drawn at the top centre, and nothing else covers the desktop.
is_black 756 12 || fail "collapsed notch not drawn at the top centre"
is_black 756 120 && fail "the collapsed panel covers the desktop below the notch"
import -window root "$work/collapsed.png"

# 2. Hover opens after the hover delay (0.2 s), counted from arrival.
mark; move_to 756 16; t0=$(today_seconds)
t=$(wait_for "overlay: expand (unspecified)")
expect_at_least "$(echo "$t - $t0" | bc -l)" 0.15 "hover opened too early"
sleep 0.6
is_black 756 200 || fail "expanded panel not drawn"
is_black 30 500 && fail "the desktop beside the panel is covered"

# 3. Leaving closes 0.35 s later.
mark; move_to 100 700; t0=$(today_seconds)
t=$(wait_for "overlay: collapse (mouse left)")
expect_at_least "$(echo "$t - $t0" | bc -l)" 0.30 "closed too early after leaving"
sleep 0.6
is_black 756 200 && fail "panel still drawn after closing"

# 4. A click on the notch opens at once.
mark; move_to 756 16; xdotool click 1; t0=$(today_seconds)
t=$(wait_for "overlay: expand (unspecified)")
expect_below "$(echo "$t - $t0" | bc -l)" 0.15 "a click must open without the hover delay"

# 5. Escape closes.
sleep 0.5; mark; move_to 756 200; xdotool key Escape
wait_for "overlay: collapse (esc)" >/dev/null

# 6. A click outside closes.
sleep 0.5; mark; move_to 756 16; xdotool click 1
wait_for "overlay: expand (unspecified)" >/dev/null
sleep 0.3; mark; move_to 60 900; xdotool click 1
wait_for "overlay: collapse (click outside)" >/dev/null

# 7. Claude Code asks for approval: its hook appends a payload, and the closed notch shows the alert.
events=$XDG_DATA_HOME/Vantrelle/claude-events.jsonl
sleep 0.6; mark; move_to 60 900
t0=$(today_seconds)
printf '%s\n' '{"session_id":"e2e-1","transcript_path":"/nonexistent/e2e.jsonl","cwd":"/home/dev/api","hook_event_name":"Notification","message":"Claude needs your permission to use Bash","notification_type":"permission_prompt"}' >>"$events"
t=$(wait_for "claude alerts: permission_prompt in api" 2)
expect_below "$(echo "$t - $t0" | bc -l)" 1.0 "the alert must reach the notch within a second"
sleep 0.6
is_black $((756 + 92 + 40)) 12 || fail "the notch did not widen for the alert"
import -window root "$work/alert.png"
[[ -n "${VANTRELLE_UI_SHOTS:-}" ]] && cp "$work/collapsed.png" "$work/alert.png" "$VANTRELLE_UI_SHOTS/"

# ---- The shell: dock clicks, Escape from a text field, the settings window, one instance -------------
# Where things sit on this 1512-pixel screen: the panel is 998 wide around x=756 and 340 high; the dock
# is centred 12 below it; its items are 40 apart, calc the tenth of seventeen.
panel_bottom=340
dock_y=$((panel_bottom + 12 + 23))
calc_x=$((756 + 40))
header_y=$((32 + 8 + 20))
gear_x=$((756 + 499 - 20 - 11 - 2 * 30))   # close, then "more" (no tray here), then the gear

# 8. A click on a dock icon, then leaving: the panel still closes (the click's release is not lost).
sleep 0.6; mark; move_to 756 16; xdotool click 1
wait_for "overlay: expand (unspecified)" >/dev/null
sleep 0.5; move_to "$calc_x" "$dock_y"; xdotool click 1
sleep 0.3; mark; move_to 100 700
wait_for "overlay: collapse (mouse left)" >/dev/null

# 9. Escape from the calculator's field, with text in it, closes the panel.
sleep 0.6; mark; move_to 756 16; xdotool click 1
wait_for "overlay: expand (unspecified)" >/dev/null
sleep 0.5; move_to "$calc_x" "$dock_y"; xdotool click 1
sleep 0.3; xdotool type --delay 20 "12*3"
sleep 0.2; mark; xdotool key Escape
wait_for "overlay: collapse (esc)" >/dev/null

# 10. The gear opens the settings; a new hover delay applies to the very next hover.
sleep 0.6; mark; move_to 756 16; xdotool click 1
wait_for "overlay: expand (unspecified)" >/dev/null
sleep 0.5; mark; move_to "$gear_x" "$header_y"; xdotool click 1
wait_for "settings: window shown" >/dev/null
sleep 1
settings_window=$(xdotool search --name "Vantrelle Settings" | head -1)
[[ -n "$settings_window" ]] || fail "no settings window"
[[ -n "${VANTRELLE_UI_SHOTS:-}" ]] && import -window "$settings_window" "$VANTRELLE_UI_SHOTS/settings-window.png"
mark; xdotool key ctrl+a; xdotool type --delay 20 "1.2"; xdotool key Return
wait_for "settings: setHoverDelay changed" >/dev/null
grep -q '"hoverDelay": *1.2' "$XDG_CONFIG_HOME/Vantrelle/defaults.json" || fail "the hover delay was not stored"
sleep 0.3; move_to 100 900; sleep 0.5
mark; move_to 756 16; t0=$(today_seconds)
t=$(wait_for "overlay: expand (unspecified)" 4)
expect_at_least "$(echo "$t - $t0" | bc -l)" 1.1 "the new hover delay was not honoured"
sleep 0.3; mark; move_to 100 900
wait_for "overlay: collapse (mouse left)" >/dev/null

# 11. A second launch opens the first instance's panel and ends; `--quit` ends the first.
sleep 0.6; mark
"$app" >"$work/second.out" 2>&1 || fail "the second launch failed: $(cat "$work/second.out")"
wait_for "overlay: expand (second launch)" >/dev/null
"$app" --quit || fail "--quit found no instance"
for _ in $(seq 100); do kill -0 "$app_pid" 2>/dev/null || break; sleep 0.05; done
kill -0 "$app_pid" 2>/dev/null && fail "--quit did not end the program"
"$app" --quit 2>/dev/null && fail "--quit succeeded with nothing running"

# 12. VANTRELLE_OPEN_SETTINGS opens the window at launch, on the page it names.
mark
VANTRELLE_OPEN_SETTINGS=toggles "$app" >"$work/app2.out" 2>&1 &
app_pid=$!
wait_for "settings: window shown" 8 >/dev/null

# 13. Without raw pointer events (an X client under a Wayland compositor sees none), the notch hears
# its own windows: hovering opens it, leaving closes it.
kill "$app_pid"; wait "$app_pid" 2>/dev/null || true
sleep 0.3; mark
VANTRELLE_NO_RAW_POINTER=1 "$app" >"$work/app3.out" 2>&1 &
app_pid=$!
wait_for "launch: starting background services" 8 >/dev/null
sleep 0.8; move_to 100 900; sleep 0.3
mark; move_to 756 16
wait_for "overlay: expand (unspecified)" 4 >/dev/null
sleep 0.6; mark; move_to 756 200; sleep 0.2; move_to 100 900
wait_for "overlay: collapse (mouse left)" >/dev/null

echo "ui: the shell's dock clicks, Escape, settings, hover delay, second launch, --quit and own-event hover behave"

echo "ui: hover, leave, click, Escape, click outside and a Claude Code alert behave; shell drawn where expected"
