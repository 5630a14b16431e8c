#!/usr/bin/env bash
# Our recurrence expansion against an independent one (python3-recurring-ical-events, which doesn't
# use libical): for a set of series with rules, exceptions, overrides, zones and all-day events, the
# events `vantrelle today` lists for each day of two months must be the ones that library finds.
#
#   recurrence-crosscheck-test.sh <command...>     e.g. build/app/vantrelle today
set -uo pipefail
fail() { echo "FAIL: $*"; exit 1; }
if ! /usr/bin/python3 -c 'import recurring_ical_events' 2>/dev/null; then
  echo "recurrence cross-check: python3-recurring-ical-events missing, skipped"
  exit 0
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data
mkdir -p "$work/cals/main"
# One VEVENT of the given content lines.
vevent() { printf 'BEGIN:VEVENT\r\n'; printf '%s\r\n' "$@"; printf 'END:VEVENT\r\n'; }
{
  printf 'BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//t//EN\r\n'
  vevent UID:weekly SUMMARY:Weekly 'DTSTART;TZID=Europe/Berlin:20261005T100000' DURATION:PT30M \
    'RRULE:FREQ=WEEKLY;BYDAY=MO,TH' 'EXDATE;TZID=Europe/Berlin:20261015T100000'
  vevent UID:monthly SUMMARY:Monthly 'DTSTART;TZID=America/New_York:20260901T090000' DURATION:PT1H \
    'RRULE:FREQ=MONTHLY;BYDAY=1TU,3TU;UNTIL=20261231T235959Z'
  vevent UID:daily-count 'SUMMARY:Daily count' DTSTART:20261020T060000Z DURATION:PT15M \
    'RRULE:FREQ=DAILY;INTERVAL=2;COUNT=8' RDATE:20261111T120000Z
  vevent UID:allday 'SUMMARY:All day weekly' 'DTSTART;VALUE=DATE:20261002' 'DTEND;VALUE=DATE:20261003' \
    RRULE:FREQ=WEEKLY 'EXDATE;VALUE=DATE:20261016'
  vevent UID:floating SUMMARY:Floating DTSTART:20261010T083000 DTEND:20261010T090000 \
    'RRULE:FREQ=DAILY;BYDAY=SA,SU'
  printf 'END:VCALENDAR\r\n'
} >"$work/cals/main/series.ics"

for offset in $(seq 0 60); do
  day=$(date -d "2026-10-01 +$offset day" +%F)
  # Midnight in Berlin, as UTC: the day's first moment, so nothing has ended yet.
  now=$(TZ=Europe/Berlin date -u -d "$day 00:00" +%Y-%m-%dT%H:%M:%SZ)
  "$@" --json --calendars "$work/cals" --now "$now" --tz Europe/Berlin >"$work/ours.json" 2>"$work/err" \
    || fail "$day: $(cat "$work/err")"
  TZ=Europe/Berlin /usr/bin/python3 - "$work/cals/main/series.ics" "$day" "$work/ours.json" <<'PY' || exit 1
import datetime, json, sys, zoneinfo
import icalendar, recurring_ical_events
berlin = zoneinfo.ZoneInfo("Europe/Berlin")
cal = icalendar.Calendar.from_ical(open(sys.argv[1], "rb").read())
day = datetime.date.fromisoformat(sys.argv[2])
theirs = set()
for event in recurring_ical_events.of(cal).at(day):
    start = event["DTSTART"].dt
    if not isinstance(start, datetime.datetime):
        start = datetime.datetime.combine(start, datetime.time())
    if start.tzinfo is None:
        start = start.replace(tzinfo=berlin)
    theirs.add((str(event["SUMMARY"]), start.astimezone(datetime.timezone.utc).strftime("%Y-%m-%dT%H:%M:%S.000Z")))
ours = {(e["title"], e["start"]) for e in json.load(open(sys.argv[3]))["events"]}
if ours != theirs:
    print(f"FAIL: {day}: only ours {sorted(ours - theirs)}, only theirs {sorted(theirs - ours)}")
    sys.exit(1)
PY
done
echo "recurrence cross-check: ok"
