#!/usr/bin/env bash
# The meeting heads-up through the real program: the test hook's meeting 200 s away is announced at
# start (inside the 5-minute lead, outside the last minute) and the notch opens on Today; one 30 s away
# is too late for a heads-up and the notch stays closed.
#
#   meeting-headsup-ui-test.sh <vantrelle binary>
set -uo pipefail
app=${1:?usage: meeting-headsup-ui-test.sh <vantrelle binary>}
source "$(dirname "$0")/../ui/lib.sh"
fail() { echo "FAIL: $*"; echo "--- log"; cat "$work"/*.log 2>/dev/null; exit 1; }
start_display
export VANTRELLE_BACKDROP=1

# Runs the program with the hook until `text` shows in its log or 10 s pass, lingers, then stops it.
run_until() {
  local seconds=$1 log=$2 text=$3 linger=${4:-0}
  VANTRELLE_TEST_MEETING=$seconds VANTRELLE_DEBUG_LOG=$log "$app" >"$work/app.out" 2>&1 &
  app_pid=$!
  for _ in $(seq 200); do grep -q "$text" "$log" 2>/dev/null && break; sleep 0.05; done
  sleep "$linger"
  kill "$app_pid" 2>/dev/null; wait "$app_pid" 2>/dev/null
  app_pid=
}

run_until 200 "$work/soon.log" "overlay: expand (meeting heads-up)"
grep -q "calendar: heads-up for Design review starting" "$work/soon.log" || fail "no heads-up for a meeting 200 s away"
grep -q "overlay: expand (meeting heads-up)" "$work/soon.log" || fail "the heads-up did not open the notch"

run_until 30 "$work/late.log" "launch: start calendar" 1
grep -q "calendar: heads-up" "$work/late.log" && fail "a meeting 30 s away got a heads-up"
grep -q "overlay: expand" "$work/late.log" && fail "the notch opened for a meeting 30 s away"
echo "meeting heads-up: ok"
