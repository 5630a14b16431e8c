#include "schedule/ReminderList.h"

#include <algorithm>
#include <tuple>

#include "schedule/CalendarDemo.h"
#include "schedule/TodoCompletion.h"
#include "support/DebugLog.h"
#include "support/LocalCalendar.h"

namespace vantrelle {

ReminderList::ReminderList(CalendarLibrary& library, const Clock& clock, bool demo)
    : m_library(library), m_clock(clock), m_demo(demo) {
    if (m_demo) m_items = CalendarDemo::todos(m_clock.now());
}

void ReminderList::refresh() {
    if (m_demo) return;
    m_library.refresh();
    const Date from = LocalCalendar::startOfDay(m_clock.now());
    auto items = m_library.todos(from, LocalCalendar::addDays(from, 1));
    // Open ones first, then by due time, so what is left to do leads.
    std::stable_sort(items.begin(), items.end(), [](const CalendarTodo& a, const CalendarTodo& b) {
        return std::tie(a.completed, a.due.seconds, a.title) < std::tie(b.completed, b.due.seconds, b.title);
    });
    if (items == m_items) return;
    m_items = std::move(items);
    changed.emit();
}

bool ReminderList::complete(std::size_t index) {
    if (index >= m_items.size() || m_items[index].completed) return false;
    if (m_demo) {
        m_items[index].completed = true;
        changed.emit();
        return true;
    }
    const auto& item = m_items[index];
    if (auto result = TodoCompletion::markCompletedInFile(item.file, item.identifier, m_clock.now());
        !result) {
        DebugLog::write([&] { return "calendar: can't complete " + item.title + ": " + result.error(); });
        return false;
    }
    refresh();
    return true;
}

}  // namespace vantrelle
