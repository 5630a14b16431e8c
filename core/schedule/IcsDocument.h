#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "schedule/CalendarEvent.h"

struct icalcomponent_impl;

namespace vantrelle {

// What an event needs from outside its file: the calendar's name and who the user is.
struct EventReading {
    std::string calendar;
    std::vector<std::string> userAddresses;  // lower case, without "mailto:"
    std::filesystem::path file;
};

// One parsed iCalendar file. Reading a day out of it is separate from parsing, so a file that has not
// changed is parsed once and asked for any number of days.
class IcsDocument {
public:
    // None when the text holds no calendar; `problem` then says why.
    [[nodiscard]] static std::unique_ptr<IcsDocument> parse(std::string_view text, std::string& problem);
    ~IcsDocument();
    IcsDocument(const IcsDocument&) = delete;
    IcsDocument& operator=(const IcsDocument&) = delete;

    // X-WR-CALNAME, or empty.
    [[nodiscard]] std::string calendarName() const;
    // Lines libical could not make sense of; those properties are left out.
    [[nodiscard]] int errorCount() const { return m_errors; }

    // Every occurrence that overlaps [from, to): recurrences expanded, overrides applied.
    void appendEvents(Date from, Date to, const EventReading& reading, std::vector<CalendarEvent>& out) const;
    // To-dos due within [from, to).
    void appendTodos(Date from, Date to, const EventReading& reading, std::vector<CalendarTodo>& out) const;

private:
    IcsDocument(icalcomponent_impl* root, std::vector<icalcomponent_impl*> calendars, int errors);

    icalcomponent_impl* m_root;
    std::vector<icalcomponent_impl*> m_calendars;
    int m_errors = 0;
};

}  // namespace vantrelle
