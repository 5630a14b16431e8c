#include "schedule/CalendarDay.h"

#include <algorithm>
#include <tuple>

namespace vantrelle::CalendarDay {

std::vector<CalendarEvent> arrange(std::vector<CalendarEvent> events, Date now) {
    std::erase_if(events, [now](const CalendarEvent& event) { return !event.allDay && !(event.end > now); });
    std::stable_sort(events.begin(), events.end(), [](const CalendarEvent& a, const CalendarEvent& b) {
        if (a.allDay != b.allDay) return a.allDay;
        return a.start < b.start;
    });
    return events;
}

void sortForReading(std::vector<CalendarEvent>& events) {
    std::stable_sort(events.begin(), events.end(), [](const CalendarEvent& a, const CalendarEvent& b) {
        return std::tie(a.start.seconds, a.identifier, a.title, a.calendar) <
               std::tie(b.start.seconds, b.identifier, b.title, b.calendar);
    });
}

}  // namespace vantrelle::CalendarDay
