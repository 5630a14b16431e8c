#pragma once

#include <string>
#include <vector>

#include "schedule/CalendarEvent.h"

namespace vantrelle::CalendarDay {

// Today's list as the Today view, the notch and `vantrelle today` all show it: events that are over
// are left out (all-day events stay all day), then all-day events first and the rest by start, the
// order among equals kept as given. One function, so the terminal and the panel never disagree.
[[nodiscard]] std::vector<CalendarEvent> arrange(std::vector<CalendarEvent> events, Date now);

// The order `arrange` uses, for input read from many files: sorts by start, then by identifier and
// title, so the same files give the same list whatever order the folders were walked in.
void sortForReading(std::vector<CalendarEvent>& events);

// The meeting a Join button on the Dashboard offers: the first event of today's arranged list that
// is timed, not declined, and has a call link. A running meeting counts: it can still be joined.
[[nodiscard]] const CalendarEvent* nextToJoin(const std::vector<CalendarEvent>& events);

// "09:05" in the process's time zone.
[[nodiscard]] std::string clockTime(Date date);
// "09:05-09:35", or "All day".
[[nodiscard]] std::string timeRange(const CalendarEvent& event);

}  // namespace vantrelle::CalendarDay
