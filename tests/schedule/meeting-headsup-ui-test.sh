#!/usr/bin/env bash
# The meeting heads-up through the real program: the test hook's meeting 200 s away is announced at
# start (inside the 5-minute lead) and the notch opens on Today. Which meetings get one is
# CalendarServiceTest's.
#
#   meeting-headsup-ui-test.sh <vantrelle binary>
set -uo pipefail
app=${1:?usage: meeting-headsup-ui-test.sh <vantrelle binary>}
source "$(dirname "$0")/../ui/lib.sh"
fail() { echo "FAIL: $*"; echo "--- log"; cat "$work"/*.log 2>/dev/null; exit 1; }
start_display
export VANTRELLE_BACKDROP=1

log=$work/soon.log
VANTRELLE_TEST_MEETING=200 VANTRELLE_DEBUG_LOG=$log "$app" >"$work/app.out" 2>&1 &
app_pid=$!
for _ in $(seq 200); do grep -q "overlay: expand (meeting heads-up)" "$log" 2>/dev/null && break; sleep 0.05; done
kill "$app_pid" 2>/dev/null; wait "$app_pid" 2>/dev/null
app_pid=
grep -q "calendar: heads-up for Design review starting" "$log" || fail "no heads-up for a meeting 200 s away"
grep -q "overlay: expand (meeting heads-up)" "$log" || fail "the heads-up did not open the notch"
echo "meeting heads-up: ok"
