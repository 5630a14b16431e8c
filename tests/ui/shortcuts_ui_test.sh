#!/usr/bin/env bash
# Global shortcuts and the game under a private X server: Ctrl+Alt+G, bound to the game and pressed with
# xdotool, opens the notch on the game; Ctrl+Alt+K, bound to the calculator but already grabbed by
# another X client, is refused; Space starts a run whose score moves; an agent alert pauses the run and
# closes the panel.
set -euo pipefail
app=${1:?usage: shortcuts_ui_test.sh <vantrelle binary> <key_grabber binary>}
grabber=${2:?usage: shortcuts_ui_test.sh <vantrelle binary> <key_grabber binary>}
source "$(dirname "$0")/lib.sh"
start_display
mkdir -p "$XDG_CONFIG_HOME/Vantrelle"
# The stored combos: G is key code 5, K is 40; Ctrl and Alt are 4096 and 2048.
combos='{"game":{"keyCode":5,"modifiers":6144,"display":"Ctrl+Alt+G"},"calc":{"keyCode":40,"modifiers":6144,"display":"Ctrl+Alt+K"}}'
printf '{"notchOutline": false, "toolShortcuts": {"base64": "%s"}}\n' "$(printf '%s' "$combos" | base64 -w0)" \
  >"$XDG_CONFIG_HOME/Vantrelle/defaults.json"
export VANTRELLE_CLAUDE_EVENTS=$work/claude-events.jsonl
# No session bus, so no shortcuts portal: the key grabs on the X server are what is tested here.
export DBUS_SESSION_BUS_ADDRESS=unix:path=$work/no-bus

# Another program holds Ctrl+Alt+K (keysym k, Control|Mod1).
mkfifo "$work/grabber.out"
"$grabber" 6b 12 >"$work/grabber.out" &
helper_pid=$!
read -r -t 10 line <"$work/grabber.out" || true
[[ ${line:-} == grabbed ]] || fail "the other client could not grab Ctrl+Alt+K"

"$app" >"$work/app.out" 2>&1 &
app_pid=$!
wait_for "launch: starting background services" 20
wait_for "shortcuts: game registered" 5
wait_for "shortcuts: couldn't register Ctrl+Alt+K for calc (10)" 5

# 1. The shortcut opens the notch on the game.
xdotool key ctrl+alt+g
wait_for "shortcuts: fired game" 5
wait_for "overlay: expand (shortcut)" 5
wait_for "game: view shown" 5

# 2. Space starts a run; the score moves.
sleep 0.5
xdotool key space
wait_for "game: run started" 5
sleep 1

# 3. Claude asks for approval: the run pauses with its score and the panel steps aside.
printf '{"session_id":"s1","cwd":"/work/shop","hook_event_name":"Notification","notification_type":"permission_prompt"}\n' \
  >>"$VANTRELLE_CLAUDE_EVENTS"
wait_for "game: stepping aside at " 5
wait_for "overlay: collapse (Claude needs you)" 5
score=$(grep -o 'game: stepping aside at [0-9]*' "$log" | head -1 | grep -o '[0-9]*$')
(( score > 0 )) || fail "the score did not move ($score)"
grep -qF "game: stepping aside at $score (Claude needs your approval)" "$log" || fail "the alert's message is not the game's"
echo "ui: a global shortcut opened the game, a taken combo failed, Space scored $score and an alert stepped aside"
