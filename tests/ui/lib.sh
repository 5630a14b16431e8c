# Sourced by the scripts that run the real program: a private home in a temporary folder, removed at exit
# once whatever app_pid, helper_pid, server and xvfb_pid name is stopped (it may still be writing).
work=$(mktemp -d)
log=$work/v.log
trap 'kill ${app_pid:-} ${helper_pid:-} ${server:-} ${xvfb_pid:-} 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$work"' EXIT
export HOME=$work/home XDG_CONFIG_HOME=$work/home/.config XDG_DATA_HOME=$work/home/.local/share
export XDG_CACHE_HOME=$work/home/.cache VANTRELLE_DEBUG_LOG=$log QT_QUICK_BACKEND=software

# To stderr: a failure inside $(...) must still be seen.
fail() { { echo "FAIL: $*"; echo "--- log"; cat "$log" 2>/dev/null; } >&2; exit 1; }

# A private display of its own: sets DISPLAY and xvfb_pid.
start_display() {
  source "${BASH_SOURCE[0]%/*}/../../scripts/virtual-display.sh"
  start_virtual_display "$work"
}

# Waits up to $2 seconds (5 unless said) for a log line containing $1, written after the last `mark`.
lines_before=0
mark() { if [[ -f "$log" ]]; then lines_before=$(wc -l <"$log"); else lines_before=0; fi; }
wait_for() {
  for _ in $(seq "$(awk "BEGIN { print int(${2:-5} * 20) }")"); do
    tail -n +$((lines_before + 1)) "$log" 2>/dev/null | grep -qF "$1" && return 0
    sleep 0.05
  done
  fail "no '$1' in the log within ${2:-5} s"
}

# Starts $app with the environment assignments given and waits until its background services start.
start_app() {
  env "$@" "$app" >>"$work/app.out" 2>&1 &
  app_pid=$!
  wait_for "launch: starting background services" 10
}

# Raw pointer events come only from real motion: jump next to the point, then step onto it.
move_to() { xdotool mousemove $(($1 - 1)) "$2"; sleep 0.2; xdotool mousemove_relative 1 0; }
click_at() { move_to "$1" "$2"; sleep 0.2; xdotool click 1; }

# Serves $1 over HTTP on a free port below the ephemeral range: sets port, and server once it listens.
start_http_server() {
  port=$(python3 -c 'import socket,random
for _ in range(200):
    p = random.randint(20000, 40000); s = socket.socket()
    try: s.bind(("127.0.0.1", p)); s.close(); print(p); break
    except OSError: pass')
  mkfifo "$work/server.out"
  (cd "$1" && exec python3 -u -m http.server "$port" --bind 127.0.0.1 >"$work/server.out" 2>/dev/null) &
  server=$!
  local line
  exec 3<"$work/server.out"
  while read -r -t 20 line <&3; do [[ $line == Serving* ]] && return 0; done
  fail "the test server did not start"
}
