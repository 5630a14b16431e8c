#include "RemindersViewModel.h"

#include <algorithm>

#include "ShellEngine.h"
#include "schedule/CalendarDay.h"

namespace vantrelle {

RemindersViewModel::RemindersViewModel(ReminderList& list) : m_list(list) {
    m_connection = m_list.changed.connect([this] {
        refreshRows();
        Q_EMIT changed();
    });
    refreshRows();
}

RemindersViewModel* RemindersViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::reminders);
}

int RemindersViewModel::openCount() const {
    const auto& items = m_list.items();
    return static_cast<int>(
        std::count_if(items.begin(), items.end(), [](const auto& item) { return !item.completed; }));
}

bool RemindersViewModel::complete(int index) {
    return index >= 0 && m_list.complete(static_cast<std::size_t>(index));
}

void RemindersViewModel::refreshRows() {
    std::vector<ReminderListModel::Row> rows;
    for (const auto& item : m_list.items()) {
        rows.push_back({QString::fromStdString(item.title),
                        item.dueIsDate ? QStringLiteral("Today")
                                       : QString::fromStdString(CalendarDay::clockTime(item.due)),
                        QString::fromStdString(item.calendar), item.completed});
    }
    m_items.setRows(std::move(rows));
}

}  // namespace vantrelle
