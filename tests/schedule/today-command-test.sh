#!/usr/bin/env bash
# `vantrelle today` as a process over real .ics files: the day of --now in the --tz zone, finished
# events gone, join links and declines from the stored addresses in the JSON; an unknown zone exits 2.
#
#   today-command-test.sh <command...>     e.g. build/app/vantrelle today
set -uo pipefail
fail() { echo "FAIL: $*"; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data
mkdir -p "$work/cals/work" "$work/config/Vantrelle"
# One VEVENT of the given content lines.
vevent() { printf 'BEGIN:VEVENT\r\n'; printf '%s\r\n' "$@"; printf 'END:VEVENT\r\n'; }
{
  printf 'BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//t//EN\r\n'
  vevent UID:standup SUMMARY:Standup 'DTSTART;TZID=America/New_York:20261102T093000' DURATION:PT15M \
    'RRULE:FREQ=WEEKLY;BYDAY=TU' LOCATION:https://meet.google.com/abc-defg-hij
  vevent UID:budget SUMMARY:Budget DTSTART:20261103T100000Z DTEND:20261103T110000Z \
    'DESCRIPTION:Join https://zoom.us/j/1234567890' 'ATTENDEE;PARTSTAT=DECLINED:mailto:me@example.com'
  vevent UID:early SUMMARY:Early DTSTART:20261103T070000 DTEND:20261103T073000
  vevent UID:tomorrow 'SUMMARY:Tokyo tomorrow' DTSTART:20261103T160000Z
  printf 'END:VCALENDAR\r\n'
} >"$work/cals/work/day.ics"
echo "not a calendar" >"$work/cals/work/broken.ics"
echo '{"calendarUserAddresses":["ME@example.com"]}' >"$work/config/Vantrelle/defaults.json"

# 18:00 on the 3rd in Tokyo: New York's 09:30 standup is Tokyo's 23:30, the floating 07:00 event is
# over, and 16:00 UTC is already Tokyo's 4th.
"$@" --json --calendars "$work/cals" --now 2026-11-03T09:00:00Z --tz Asia/Tokyo >"$work/out" 2>"$work/err" \
  || fail "the report fails: $(cat "$work/err")"
/usr/bin/python3 - "$work/out" <<'PY' || fail "wrong JSON: $(cat "$work/out")"
import json, sys
r = json.load(open(sys.argv[1]))
assert r["day"] == "2026-11-03", r["day"]
got = [(e["title"], e["start"], e["joinLink"], e["declined"]) for e in r["events"]]
assert got == [("Budget", "2026-11-03T10:00:00.000Z", "https://zoom.us/j/1234567890", True),
               ("Standup", "2026-11-03T14:30:00.000Z", "https://meet.google.com/abc-defg-hij", False)], got
PY

"$@" --tz Mars/Olympus >/dev/null 2>"$work/err"; status=$?
[[ $status -eq 2 ]] || fail "an unknown zone exits $status"
grep -q 'Mars/Olympus' "$work/err" || fail "the message names no zone"
echo "today command: ok"
