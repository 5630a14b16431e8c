#pragma once

#include <vector>

#include "platform/Clock.h"
#include "schedule/CalendarLibrary.h"
#include "support/Signal.h"

namespace vantrelle {

// Today's to-dos from the user's calendars, for the Reminders view and tile. Ticking one writes
// STATUS:COMPLETED into its file; demo runs keep canned items and write nothing. Main thread only.
class ReminderList {
public:
    ReminderList(CalendarLibrary& library, const Clock& clock, bool demo);

    // Reads today's to-dos again (the library re-reads only changed files).
    void refresh();
    [[nodiscard]] const std::vector<CalendarTodo>& items() const { return m_items; }
    // Marks the item done in its file; false (and logged) if the file couldn't be written.
    bool complete(std::size_t index);

    Signal<> changed;

private:
    CalendarLibrary& m_library;
    const Clock& m_clock;
    bool m_demo;
    std::vector<CalendarTodo> m_items;
};

}  // namespace vantrelle
