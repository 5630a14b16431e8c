#pragma once

#include <functional>
#include <vector>

#include "schedule/CalendarEvent.h"

namespace vantrelle {

// Where today's events come from. On Linux: the user's iCalendar folders.
class CalendarSource {
public:
    // A calendar found means full access; none found means the user hasn't chosen one yet.
    enum class Access { notDetermined, fullAccess };

    virtual ~CalendarSource() = default;

    // Looks again (a cheap rescan) and says whether there is anything to read.
    [[nodiscard]] virtual Access access() = 0;
    // The occurrences overlapping [from, to), as read by the last access().
    [[nodiscard]] virtual std::vector<CalendarEvent> events(Date from, Date to) = 0;
    // Calls `onChange` on the main thread when the calendars may have changed.
    virtual void observeChanges(std::function<void()> onChange) = 0;
    // Lets the user point at a calendar folder; `done` runs on the main thread when they have answered.
    virtual void requestAccess(std::function<void()> done) = 0;
};

}  // namespace vantrelle
