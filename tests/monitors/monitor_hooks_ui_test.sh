#!/usr/bin/env bash
# The real program's launch hooks of the monitors under a private X server: VANTRELLE_TEST_STOP_PORT
# stops a real server this script started, VANTRELLE_TEST_WRAPPED_OUT writes the four Wrapped cards
# and logs their figures, and a port with nothing on it is said so.
set -euo pipefail
app=${1:?usage: monitor_hooks_ui_test.sh <vantrelle binary>}
work=$(mktemp -d)
log=$work/v.log
trap 'kill ${app_pid:-} ${xvfb_pid:-} ${server:-} 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$work"' EXIT
fail() { echo "FAIL: $*"; echo "--- log"; cat "$log" 2>/dev/null; exit 1; }

source "$(dirname "$0")/../../scripts/virtual-display.sh"
start_virtual_display "$work"
export HOME=$work/home XDG_CONFIG_HOME=$work/home/.config XDG_DATA_HOME=$work/home/.local/share
export VANTRELLE_DEBUG_LOG=$log QT_QUICK_BACKEND=software
mkdir -p "$HOME/shop" "$work/cards"

port=$(python3 -c 'import socket,random
for _ in range(200):
    p = random.randint(20000, 40000); s = socket.socket()
    try: s.bind(("127.0.0.1", p)); s.close(); print(p); break
    except OSError: pass')
mkfifo "$work/server.out"
(cd "$HOME/shop" && exec python3 -u -m http.server "$port" --bind 127.0.0.1 >"$work/server.out" 2>/dev/null) &
server=$!
exec 3<"$work/server.out"
ready=
while read -r -t 20 line <&3; do [[ $line == Serving* ]] && { ready=1; break; }; done
[[ -n $ready ]] || fail "the test server did not start"

# Waits up to $2 seconds for a log line containing $1.
wait_for() {
  for _ in $(seq $(($2 * 20))); do grep -qF "$1" "$log" 2>/dev/null && return 0; sleep 0.05; done
  fail "no '$1' within $2 s"
}

VANTRELLE_TEST_STOP_PORT=$port VANTRELLE_TEST_WRAPPED_OUT=$work/cards "$app" >"$work/app.out" 2>&1 &
app_pid=$!
wait_for "($server) on :$port to stop" 15
wait "$server" 2>/dev/null || true
kill -0 "$server" 2>/dev/null && fail "the server still runs after the stop hook"
server=
wait_for "wrapped test: thisMonth" 20
for period in lastWeek thisWeek lastMonth thisMonth; do
  grep -q "wrapped test: $period .* focus=0.0 h cursor=0.0km top=none ai=0 headline=Your cursor travelled 0 m" "$log" \
    || fail "no figures logged for $period"
  [[ $(head -c 4 "$work/cards/$period.png" | od -An -tx1 | tr -d ' \n') == 89504e47 ]] || fail "no card for $period"
done
kill "$app_pid"; wait "$app_pid" 2>/dev/null || true

VANTRELLE_TEST_STOP_PORT=$port "$app" >"$work/app2.out" 2>&1 &
app_pid=$!
wait_for "devservers: nothing on :$port" 15
echo "monitor hooks: ok"
