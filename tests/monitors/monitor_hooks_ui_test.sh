#!/usr/bin/env bash
# The real program's launch hooks of the monitors under a private X server: VANTRELLE_TEST_STOP_PORT
# stops a real server this script started, VANTRELLE_TEST_WRAPPED_OUT writes the four Wrapped cards.
set -euo pipefail
app=${1:?usage: monitor_hooks_ui_test.sh <vantrelle binary>}
source "$(dirname "$0")/../ui/lib.sh"
start_display
mkdir -p "$HOME/shop" "$work/cards"
start_http_server "$HOME/shop"

VANTRELLE_TEST_STOP_PORT=$port VANTRELLE_TEST_WRAPPED_OUT=$work/cards "$app" >"$work/app.out" 2>&1 &
app_pid=$!
wait_for "($server) on :$port to stop" 15
wait "$server" 2>/dev/null || true
kill -0 "$server" 2>/dev/null && fail "the server still runs after the stop hook"
server=
wait_for "wrapped test: thisMonth" 20
for period in lastWeek thisWeek lastMonth thisMonth; do
  [[ $(head -c 4 "$work/cards/$period.png" | od -An -tx1 | tr -d ' \n') == 89504e47 ]] || fail "no card for $period"
done
kill "$app_pid"; wait "$app_pid" 2>/dev/null || true
echo "monitor hooks: ok"
