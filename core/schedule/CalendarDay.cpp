#include "schedule/CalendarDay.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <tuple>

#include "schedule/MeetingLink.h"

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

std::string clockTime(Date date) {
    const auto seconds = static_cast<std::time_t>(std::floor(date.seconds));
    std::tm parts{};
    if (::localtime_r(&seconds, &parts) == nullptr) return "--:--";
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d", parts.tm_hour, parts.tm_min);
    return text;
}

const CalendarEvent* nextToJoin(const std::vector<CalendarEvent>& events) {
    for (const auto& event : events) {
        if (!event.allDay && !isDeclined(event) && MeetingLink::url(event)) return &event;
    }
    return nullptr;
}

std::string timeRange(const CalendarEvent& event) {
    if (event.allDay) return "All day";
    return clockTime(event.start) + "-" + clockTime(event.end);
}

}  // namespace vantrelle::CalendarDay
