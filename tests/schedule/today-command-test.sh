#!/usr/bin/env bash
# `vantrelle today` as a process over real .ics files: the day of --now in the --tz zone, the Today
# view's order (all-day first, then by start, the finished ones gone), join links and declines from
# the stored addresses in the JSON; bad options and unknown zones exit 2 with a message.
#
#   today-command-test.sh <command...>     e.g. build/app/vantrelle today
set -uo pipefail
fail() { echo "FAIL: $*"; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data

cal=$work/cals/work
mkdir -p "$cal" "$work/config/Vantrelle"
ics() { printf 'BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//t//EN\r\n%s\nEND:VCALENDAR\r\n' "$(sed 's/$/\r/')"; }
ics >"$cal/standup.ics" <<'ICS'
BEGIN:VEVENT
UID:standup
SUMMARY:Standup
DTSTART;TZID=America/New_York:20261102T093000
DURATION:PT15M
RRULE:FREQ=WEEKLY;BYDAY=TU
LOCATION:https://meet.google.com/abc-defg-hij
END:VEVENT
ICS
ics >"$cal/day.ics" <<'ICS'
BEGIN:VEVENT
UID:holiday
SUMMARY:Holiday
DTSTART;VALUE=DATE:20261103
END:VEVENT
BEGIN:VEVENT
UID:budget
SUMMARY:Budget
DTSTART:20261103T100000Z
DTEND:20261103T110000Z
DESCRIPTION:Join https://zoom.us/j/1234567890
ATTENDEE;PARTSTAT=DECLINED:mailto:me@example.com
END:VEVENT
BEGIN:VEVENT
UID:early
SUMMARY:Early
DTSTART:20261103T070000
DTEND:20261103T073000
END:VEVENT
BEGIN:VEVENT
UID:tomorrow
SUMMARY:Tokyo tomorrow
DTSTART:20261103T160000Z
END:VEVENT
ICS
echo "not a calendar" >"$cal/broken.ics"
echo '{"calendarUserAddresses":["ME@example.com"]}' >"$work/config/Vantrelle/defaults.json"

# 18:00 on the 3rd in Tokyo: New York's 09:30 standup is Tokyo's 23:30, the floating 07:00 event is
# over, and 16:00 UTC is already Tokyo's 4th.
"$@" --json --calendars "$work/cals" --now 2026-11-03T09:00:00Z --tz Asia/Tokyo >"$work/out" 2>"$work/err" \
  || fail "the report fails: $(cat "$work/err")"
/usr/bin/python3 - "$work/out" <<'PY' || fail "wrong JSON: $(cat "$work/out")"
import json, sys
r = json.load(open(sys.argv[1]))
assert r["day"] == "2026-11-03", r["day"]
titles = [e["title"] for e in r["events"]]
assert titles == ["Holiday", "Budget", "Standup"], titles
holiday, budget, standup = r["events"]
assert holiday["allDay"] and not standup["allDay"]
assert standup["start"] == "2026-11-03T14:30:00.000Z", standup["start"]
assert standup["service"] == "Meet" and standup["joinLink"] == "https://meet.google.com/abc-defg-hij"
assert budget["declined"] is True and budget["service"] == "Zoom", budget
assert holiday["joinLink"] is None and holiday["calendar"] == "work"
PY
"$@" --calendars "$work/cals" --now 2026-11-03T09:00:00Z --tz Asia/Tokyo | grep -q '^23:30-23:45  Standup' \
  || fail "the text report has no standup at 23:30"

"$@" --tz Mars/Olympus >/dev/null 2>"$work/err"; status=$?
[[ $status -eq 2 ]] || fail "an unknown zone exits $status"
grep -q 'Mars/Olympus' "$work/err" || fail "the message names no zone"
"$@" --bogus >/dev/null 2>&1; [[ $? -eq 2 ]] || fail "an unknown option is accepted"
"$@" --help | grep -q -- '--calendars' || fail "--help prints no synopsis"
echo "today command: ok"
