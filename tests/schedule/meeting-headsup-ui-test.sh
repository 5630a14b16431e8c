#!/usr/bin/env bash
# The meeting heads-up through the real program: the test hook's meeting 200 s away is announced at
# start (inside the 5-minute lead) and opens the notch. Which meetings get one is CalendarServiceTest's.
#
#   meeting-headsup-ui-test.sh <vantrelle binary>
set -uo pipefail
app=${1:?usage: meeting-headsup-ui-test.sh <vantrelle binary>}
source "$(dirname "$0")/../ui/lib.sh"
start_display
export VANTRELLE_BACKDROP=1
start_app VANTRELLE_TEST_MEETING=200
wait_for "calendar: heads-up for Design review starting"
wait_for "overlay: expand (meeting heads-up)"
echo "meeting heads-up: ok"
