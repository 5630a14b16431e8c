#!/usr/bin/env bash
# On a Qt platform other than xcb (or offscreen) the program says what it needs and exits with 1.
set -uo pipefail
app=${1:?usage: platform_check_test.sh <vantrelle binary>}
out=$(QT_QPA_PLATFORM=minimal "$app" 2>&1)
status=$?
[[ $status -eq 1 ]] || { echo "FAIL: exit status $status, expected 1"; echo "$out"; exit 1; }
grep -q "needs an X11 session or XWayland" <<<"$out" || { echo "FAIL: no message saying what it needs"; echo "$out"; exit 1; }
echo "platform check: the minimal platform is refused with a message and status 1"
