#!/usr/bin/env bash
# Notes and Tasks under a private X server: a note typed is on disk after a termination signal that
# arrives before the save's debounce, and a task typed and entered is saved.
set -euo pipefail
app=${1:?usage: notes_ui_test.sh <vantrelle binary>}
source "$(dirname "$0")/lib.sh"
start_display
export VANTRELLE_BACKDROP=1
data=$XDG_DATA_HOME/Vantrelle

# Starts the program open on a tool and waits until the panel has opened and settled.
start_on() {
  : >"$log"
  VANTRELLE_START_EXPANDED=1 VANTRELLE_PIN_EXPANDED=1 VANTRELLE_START_TAB=$1 "$app" >>"$work/app.out" 2>&1 &
  app_pid=$!
  wait_for "overlay: expand" 10
  sleep 1
}
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

# 2. A task typed and entered is saved at once.
start_on tasks
move_to 756 117; xdotool click 1
xdotool type --delay 5 "Ship the notes tool"
xdotool key Return
sleep 0.3
grep -q "Ship the notes tool" "$data/tasks.json" || fail "the task was not saved: $(cat "$data/tasks.json" 2>&1)"
terminate
echo "notes ui test passed"
