#!/usr/bin/env bash
# Global shortcuts under a private X server: Ctrl+Alt+G, grabbed on the X server and pressed with
# xdotool, opens the notch on the game.
set -euo pipefail
app=${1:?usage: shortcuts_ui_test.sh <vantrelle binary>}
source "$(dirname "$0")/lib.sh"
start_display
mkdir -p "$XDG_CONFIG_HOME/Vantrelle"
# The stored combo: G is key code 5; Ctrl and Alt are 4096 and 2048.
combos='{"game":{"keyCode":5,"modifiers":6144,"display":"Ctrl+Alt+G"}}'
printf '{"notchOutline": false, "toolShortcuts": {"base64": "%s"}}\n' "$(printf '%s' "$combos" | base64 -w0)" \
  >"$XDG_CONFIG_HOME/Vantrelle/defaults.json"
# No session bus, so no shortcuts portal: the key grabs on the X server are what is tested here.
export DBUS_SESSION_BUS_ADDRESS=unix:path=$work/no-bus

"$app" >"$work/app.out" 2>&1 &
app_pid=$!
wait_for "launch: starting background services" 20

xdotool key ctrl+alt+g
wait_for "overlay: expand (shortcut)" 5
wait_for "game: view shown" 5
echo "ui: a global shortcut grabbed on the X server opened the game"
