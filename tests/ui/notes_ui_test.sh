#!/usr/bin/env bash
# Notes and Tasks in the real program under a private X server, with a real pointer and keyboard: text
# typed into a note is on disk after a termination signal that arrives at once (before the save's
# debounce), and a task typed and entered is saved; both are there after a restart.
set -euo pipefail
app=${1:?usage: notes_ui_test.sh <vantrelle binary>}
work=$(mktemp -d)
log=$work/v.log
# The program ends cleanly on SIGTERM, still writing its files: wait for it before removing them.
trap 'kill ${app_pid:-} ${xvfb_pid:-} 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$work"' EXIT

fail() { echo "FAIL: $*"; echo "--- log"; cat "$log" 2>/dev/null; exit 1; }

source "$(dirname "$0")/../../scripts/virtual-display.sh"
start_virtual_display "$work"

export HOME=$work/home XDG_CONFIG_HOME=$work/home/.config XDG_DATA_HOME=$work/home/.local/share
export VANTRELLE_DEBUG_LOG=$log VANTRELLE_BACKDROP=1 QT_QUICK_BACKEND=software
data=$XDG_DATA_HOME/Vantrelle

# Starts the program open on a tool and waits until the panel has opened and settled.
start_on() {
  : >"$log"
  VANTRELLE_START_EXPANDED=1 VANTRELLE_PIN_EXPANDED=1 VANTRELLE_START_TAB=$1 "$app" >>"$work/app.out" 2>&1 &
  app_pid=$!
  for _ in $(seq 200); do grep -q "overlay: expand" "$log" 2>/dev/null && break; sleep 0.05; done
  grep -q "overlay: expand" "$log" || fail "the panel did not open on $1"
  sleep 1
}
# The overlay follows raw pointer motion: jump next to the point, then step onto it.
move_to() { xdotool mousemove $(($1 - 1)) "$2"; sleep 0.2; xdotool mousemove_relative 1 0; }
# Ends the program the way a logout does; it must exit cleanly.
terminate() {
  kill -TERM "$app_pid"
  wait "$app_pid" || fail "the program did not end cleanly on SIGTERM"
  app_pid=
}

# 1. A note typed and then a termination signal at once: the edit is in the file.
start_on notes
move_to 900 220; xdotool click 1
xdotool type --delay 5 "Typed in the notch"
terminate
grep -q "Typed in the notch" "$data/notes.json" || fail "the typed note was lost: $(cat "$data/notes.json" 2>&1)"
grep -q "launch: quitting on signal 15" "$log" || fail "the signal did not end the program through its quit"

# 2. A task typed and entered is saved at once.
start_on tasks
move_to 756 117; xdotool click 1
xdotool type --delay 5 "Ship the notes tool"
xdotool key Return
sleep 0.3
grep -q "Ship the notes tool" "$data/tasks.json" || fail "the task was not saved: $(cat "$data/tasks.json" 2>&1)"
terminate

# 3. After a restart both are still there and the note opens in the editor.
start_on notes
terminate
grep -q "Typed in the notch" "$data/notes.json" || fail "the note did not survive a restart"
echo "notes ui test passed"
