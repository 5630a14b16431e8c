#pragma once

#include <libical/ical.h>

#include <optional>

#include "platform/Date.h"

namespace vantrelle::IcsTime {

// The zone of a time property: its TZID looked up in the file's own VTIMEZONEs first, then in
// libical's zone database. Floating (no TZID) and UTC times are returned as they are; a TZID nobody
// knows leaves the time floating, which is read in the local zone.
[[nodiscard]] icaltimetype withZone(icaltimetype time, icalproperty* property, icalcomponent* calendar);

// Seconds since 1970 of a date, date-time, floating or zoned time. Dates and floating times are
// wall-clock times in the process's local zone. None for a null or invalid time.
[[nodiscard]] std::optional<Date> toDate(const icaltimetype& time);

// The same wall-clock time `days` calendar days later, zone and kind kept.
[[nodiscard]] icaltimetype addDays(icaltimetype time, int days);

// The wall-clock time at `date` in the zone and kind of `like` (the local zone for floating times).
[[nodiscard]] icaltimetype wallTimeAt(Date date, const icaltimetype& like);

// A time without a zone of its own read in the zone of `like`: an EXDATE, RDATE or RECURRENCE-ID
// written floating beside a zoned DTSTART means the series' zone.
[[nodiscard]] icaltimetype inZoneOf(icaltimetype time, const icaltimetype& like);

}  // namespace vantrelle::IcsTime
