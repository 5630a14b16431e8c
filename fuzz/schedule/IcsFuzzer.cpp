// Any bytes as an iCalendar file, read the way the calendar reads a user's files: parsed, then asked
// for a day on each side of a DST change and for its to-dos, with every link search over the texts.
// It must never crash or hang, and what it gives must make sense.
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

#include "schedule/CalendarDay.h"
#include "schedule/IcsDocument.h"
#include "schedule/MeetingLink.h"

namespace {

void checkEvents(const std::vector<vantrelle::CalendarEvent>& events, vantrelle::Date from,
                 vantrelle::Date to) {
    for (const auto& event : events) {
        if (event.start >= to) std::abort();                       // starts inside the window…
        if (event.end < event.start) std::abort();                 // …never ends before it starts
        if (event.end < from && event.start < from) std::abort();  // …and reaches into it
        if (auto link = vantrelle::MeetingLink::url(event); link && !vantrelle::MeetingLink::matches(*link)) {
            std::abort();
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrelle;
    static const bool zoneSet = [] {
        ::setenv("TZ", "Europe/Berlin", 1);
        ::tzset();
        return true;
    }();
    (void)zoneSet;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::string problem;
    auto document = IcsDocument::parse(text, problem);
    (void)MeetingLink::firstMatchingUrl(text);
    if (!document) {
        if (problem.empty()) std::abort();
        return 0;
    }
    const EventReading reading{"Fuzz", {"me@example.com"}, "fuzz.ics"};
    // 24 and 25 October 2026 in Berlin: an ordinary day and the 25-hour one.
    for (const auto& [from, to] :
         {std::pair{Date{1792792800}, Date{1792879200}}, std::pair{Date{1792879200}, Date{1792969200}}}) {
        std::vector<CalendarEvent> events;
        document->appendEvents(from, to, reading, events);
        checkEvents(events, from, to);
        CalendarDay::sortForReading(events);
        (void)CalendarDay::arrange(std::move(events), from + 3600.0);
        std::vector<CalendarTodo> todos;
        document->appendTodos(from, to, reading, todos);
    }
    (void)document->calendarName();
    return 0;
}
