#!/usr/bin/env bash
# `vantrelle servers`, `screentime` and `wrapped` as processes, on a private home: the servers list
# names a real server this script started, screen time reads a day file, Wrapped writes a PNG card.
#
#   monitor-commands-test.sh <vantrelle executable>
set -uo pipefail
vantrelle=$1
source "$(dirname "$0")/../ui/lib.sh"
mkdir -p "$HOME/shop" "$XDG_DATA_HOME/Vantrelle/screentime"
start_http_server "$HOME/shop"

"$vantrelle" servers --json >"$work/servers.json" || fail "servers --json fails"
python3 -c 'import json,sys; assert {"port": int(sys.argv[2]), "pid": int(sys.argv[3]), "project": "shop", "kind": "Python"}.items() <= next(r for r in json.load(open(sys.argv[1])) if r["pid"] == int(sys.argv[3])).items()' \
  "$work/servers.json" "$port" "$server" || fail "servers --json misses the server: $(cat "$work/servers.json")"
"$vantrelle" servers --bogus >/dev/null 2>&1; [[ $? -eq 2 ]] || fail "servers accepts a bogus option"

cat >"$XDG_DATA_HOME/Vantrelle/screentime/2030-01-02.json" <<'JSON'
{"org.gnome.Terminal": {"name": "Terminal", "seconds": 3725.5}, "org.mozilla.firefox": {"name": "Firefox", "seconds": 600}}
JSON
"$vantrelle" screentime --json --day 2030-01-02 >"$work/day.json" || fail "screentime --json fails"
python3 -c 'import json,sys; d=json.load(open(sys.argv[1])); assert d["totalSeconds"] == 4325.5 and d["categories"][0] == {"category": "development", "seconds": 3725.5}' \
  "$work/day.json" || fail "screentime --json is wrong: $(cat "$work/day.json")"
"$vantrelle" screentime --day 2030-13 >/dev/null 2>&1; [[ $? -eq 2 ]] || fail "screentime takes a bad day"

"$vantrelle" wrapped --period month --json --png "$work/card.png" >"$work/wrapped.json" || fail "wrapped fails"
python3 -c 'import json,sys; w=json.load(open(sys.argv[1])); assert w["period"] == "thisMonth" and "cursorMilestone" in w' \
  "$work/wrapped.json" || fail "wrapped --json is wrong: $(cat "$work/wrapped.json")"
[[ $(head -c 8 "$work/card.png" | od -An -tx1 | tr -d ' \n') == 89504e470d0a1a0a ]] || fail "the card is no PNG"
[[ ! -e $XDG_DATA_HOME/Vantrelle/wrapped-history.json ]] || fail "a report wrote the ledger"
"$vantrelle" wrapped --period fortnight >/dev/null 2>&1; [[ $? -eq 2 ]] || fail "wrapped takes an unknown period"
echo "monitor commands: ok"
