#!/usr/bin/env bash
# A real XDND drop on the notch: a drag source written for the test drags a file's URI, xdotool moves
# the pointer from it onto the notch and lets go; the file must then be on the shelf, saved to disk.
set -euo pipefail
app=${1:?usage: shelf_drop_test.sh <vantrelle binary> <drag source binary>}
source_bin=${2:?usage: shelf_drop_test.sh <vantrelle binary> <drag source binary>}
source "$(dirname "$0")/lib.sh"
start_display
mkdir -p "$HOME/Downloads"
start_app

dropped="$work/report draft.txt"
echo "numbers" >"$dropped"
"$source_bin" "$dropped" >"$work/source.out" 2>&1 &
helper_pid=$!
for _ in $(seq 200); do grep -q ready "$work/source.out" 2>/dev/null && break; sleep 0.05; done
grep -q ready "$work/source.out" || fail "the drag source did not show"

# Press in the source, travel in steps (XDND sends a position per motion) onto the notch, let go.
xdotool mousemove 200 500 mousedown 1
for step in $(seq 1 12); do
  xdotool mousemove $((200 + (756 - 200) * step / 12)) $((500 + (12 - 500) * step / 12))
  sleep 0.05
done
xdotool mousemove 756 14 mousemove 756 12
sleep 0.2
xdotool mouseup 1

shelf=$XDG_DATA_HOME/Vantrelle/shelf.json
for _ in $(seq 100); do grep -q "report draft.txt" "$shelf" 2>/dev/null && break; sleep 0.05; done
grep -q "report draft.txt" "$shelf" 2>/dev/null || fail "the dropped file is not on the shelf"
echo "PASS"
