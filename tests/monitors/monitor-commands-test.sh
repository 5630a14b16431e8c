#!/usr/bin/env bash
# `vantrelle servers`, `screentime` and `wrapped` as processes, on a private home: the servers list
# names a real server this script started, screen time reads a day file, Wrapped writes a PNG card.
#
#   monitor-commands-test.sh <vantrelle executable>
set -uo pipefail
vantrelle=$1
source "$(dirname "$0")/../ui/lib.sh"
mkdir -p "$HOME/shop" "$XDG_DATA_HOME/Vantrelle/screentime"
# A server on a free port; its process is the one the list must name.
start_http_server "$HOME/shop"

"$vantrelle" servers --json >"$work/servers.json" || fail "servers --json fails"
python3 - "$work/servers.json" "$port" "$server" <<'PY' || fail "servers --json misses the server: $(cat "$work/servers.json")"
import json, sys
rows = json.load(open(sys.argv[1]))
port, pid = int(sys.argv[2]), int(sys.argv[3])
assert any(r["port"] == port and r["pid"] == pid and r["project"] == "shop" and r["kind"] == "Python" for r in rows)
PY
"$vantrelle" servers | grep -q "http://localhost:$port/" || fail "servers prints no URL of the server"
"$vantrelle" servers --bogus >/dev/null 2>&1; [[ $? -eq 2 ]] || fail "servers accepts a bogus option"

cat >"$XDG_DATA_HOME/Vantrelle/screentime/2030-01-02.json" <<'JSON'
{"org.gnome.Terminal": {"name": "Terminal", "seconds": 3725.5}, "org.mozilla.firefox": {"name": "Firefox", "seconds": 600}}
JSON
"$vantrelle" screentime --json --day 2030-01-02 >"$work/day.json" || fail "screentime --json fails"
python3 - "$work/day.json" <<'PY' || fail "screentime --json is wrong: $(cat "$work/day.json")"
import json, sys
day = json.load(open(sys.argv[1]))
assert day["day"] == "2030-01-02" and day["totalSeconds"] == 4325.5
assert [a["name"] for a in day["apps"]] == ["Terminal", "Firefox"]
assert day["categories"][0] == {"category": "development", "seconds": 3725.5}
PY
"$vantrelle" screentime --day 2030-01-02 | grep -q "1 h 12 m" || fail "screentime text lacks the total"
"$vantrelle" screentime --day 2030-13 >/dev/null 2>&1; [[ $? -eq 2 ]] || fail "screentime takes a bad day"

"$vantrelle" wrapped --period month --json --png "$work/card.png" >"$work/wrapped.json" || fail "wrapped fails"
python3 -c 'import json,sys; w=json.load(open(sys.argv[1])); assert w["period"] == "thisMonth" and "cursorMilestone" in w' \
  "$work/wrapped.json" || fail "wrapped --json is wrong: $(cat "$work/wrapped.json")"
[[ $(head -c 8 "$work/card.png" | od -An -tx1 | tr -d ' \n') == 89504e470d0a1a0a ]] || fail "the card is no PNG"
[[ ! -e $XDG_DATA_HOME/Vantrelle/wrapped-history.json ]] || fail "a report wrote the ledger"
"$vantrelle" wrapped --period fortnight >/dev/null 2>&1; [[ $? -eq 2 ]] || fail "wrapped takes an unknown period"
echo "monitor commands: ok"
