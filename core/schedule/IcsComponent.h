#pragma once

#include <libical/ical.h>

#include <string>
#include <vector>

#include "schedule/IcsDocument.h"

namespace vantrelle::IcsComponent {

// libical's strings may be null.
[[nodiscard]] inline std::string text(const char* value) {
    return value != nullptr ? value : "";
}

// The events of one VCALENDAR that overlap [from, to): every VEVENT's recurrences (RRULE, RDATE
// less EXDATE) with RECURRENCE-ID overrides put in place of the instances they replace.
void appendOccurrences(icalcomponent* calendar, Date from, Date to, const EventReading& reading,
                       std::vector<CalendarEvent>& out);

}  // namespace vantrelle::IcsComponent
