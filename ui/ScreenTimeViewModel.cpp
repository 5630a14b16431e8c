#include "ScreenTimeViewModel.h"

#include "ShellEngine.h"
#include "monitors/ScreenTimeReport.h"

namespace vantrelle {

namespace {

QString text(const std::string& value) {
    return QString::fromStdString(value);
}

}  // namespace

ScreenTimeViewModel::ScreenTimeViewModel(ScreenTimeTracker& tracker) : m_tracker(tracker) {
    m_connection = m_tracker.changed.connect([this] {
        refreshRows();
        Q_EMIT changed();
    });
    refreshRows();
}

ScreenTimeViewModel* ScreenTimeViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::screenTime);
}

QString ScreenTimeViewModel::total() const {
    return text(formatDuration(m_tracker.totalSeconds()));
}

QString ScreenTimeViewModel::current() const {
    const auto& current = m_tracker.current();
    return current ? text(current->name) : QString();
}

QString ScreenTimeViewModel::averageSession() const {
    return text(formatDuration(m_tracker.averageSessionSeconds()));
}

QString ScreenTimeViewModel::longestSession() const {
    return text(formatDuration(m_tracker.longestSessionSeconds()));
}

void ScreenTimeViewModel::refreshRows() {
    const auto& today = m_tracker.today();
    const double top = today.empty() ? 0 : today.front().seconds;
    std::vector<TimeShareListModel::Row> apps;
    for (const AppUsage& app : today) {
        apps.push_back({text(app.id), text(app.name), text(std::string(rawName(appCategory(app.id)))),
                        text(formatDuration(app.seconds)), top > 0 ? app.seconds / top : 0});
    }
    m_apps.setRows(std::move(apps));
    const auto totals = m_tracker.byCategory();
    const double largest = totals.empty() ? 0 : totals.front().second;
    std::vector<TimeShareListModel::Row> categories;
    for (const auto& [category, seconds] : totals) {
        const QString name = text(std::string(rawName(category)));
        QString label = name;
        label[0] = label[0].toUpper();
        categories.push_back(
            {name, label, name, text(formatDuration(seconds)), largest > 0 ? seconds / largest : 0});
    }
    m_categories.setRows(std::move(categories));
}

}  // namespace vantrelle
