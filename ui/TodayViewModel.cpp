#include "TodayViewModel.h"

#include "ShellEngine.h"
#include "schedule/CalendarDay.h"
#include "schedule/MeetingLink.h"

namespace vantrelle {

TodayViewModel::TodayViewModel(CalendarService& service, std::function<bool(const QString&)> open,
                               std::function<void()> joined)
    : m_service(service), m_open(std::move(open)), m_joined(std::move(joined)) {
    auto update = [this] {
        refreshRows();
        Q_EMIT changed();
    };
    m_connections.push_back(m_service.eventsChanged.connect(update));
    m_connections.push_back(m_service.nextMeetingChanged.connect(update));
    m_connections.push_back(m_service.statusChanged.connect(update));
    refreshRows();
}

TodayViewModel* TodayViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::today);
}

void TodayViewModel::join(const QString& url) {
    if (url.isEmpty() || !m_open(url)) return;
    if (m_joined) m_joined();
}

namespace {

QString titleOf(const CalendarEvent& event) {
    return QString::fromStdString(event.title.empty() ? std::string("Event") : event.title);
}

}  // namespace

void TodayViewModel::refreshRows() {
    const CalendarEvent* joinable = CalendarDay::nextToJoin(m_service.events());
    const auto joinLink = joinable ? MeetingLink::url(*joinable) : std::nullopt;
    m_joinTitle = joinable ? titleOf(*joinable) : QString();
    m_joinTime = joinable ? QString::fromStdString(CalendarDay::timeRange(*joinable)) : QString();
    m_joinUrl = joinLink ? QString::fromStdString(*joinLink) : QString();
    m_joinService =
        joinLink ? QString::fromStdString(std::string(MeetingLink::serviceName(*joinLink))) : QString();

    std::vector<TodayEventListModel::Row> rows;
    const auto& next = m_service.nextMeeting();
    for (const auto& event : m_service.events()) {
        const auto link = MeetingLink::url(event);
        rows.push_back(
            {titleOf(event), QString::fromStdString(CalendarDay::timeRange(event)),
             QString::fromStdString(event.calendar), event.allDay, isDeclined(event),
             link ? QString::fromStdString(*link) : QString(),
             link ? QString::fromStdString(std::string(MeetingLink::serviceName(*link))) : QString(),
             next && next->identifier == event.identifier && next->start == event.start});
    }
    m_events.setRows(std::move(rows));
}

}  // namespace vantrelle
