#include "wrapped/WrappedReminders.h"

#include "support/DebugLog.h"
#include "support/LocalCalendar.h"
#include "support/SharedInstance.h"

namespace vantrelle {

namespace {

// The period that starts at `start` and ends before `next` is due from its last day at the due hour;
// during the next period's first day the one before is still offered, as the "last" period.
std::optional<WrappedReminders::Due> dueIn(Date now, Date start, Date next, Date previous,
                                           WrappedPeriod current, WrappedPeriod last) {
    const Date lastDay = LocalCalendar::addDays(LocalCalendar::startOfDay(next), -1);
    if (now >= Date{lastDay.seconds + WrappedReminders::kDueHour * 3600.0})
        return WrappedReminders::Due{current, LocalCalendar::dayKey(start)};
    if (now < LocalCalendar::addDays(start, 1))
        return WrappedReminders::Due{last, LocalCalendar::dayKey(previous)};
    return std::nullopt;
}

}  // namespace

WrappedReminders::WrappedReminders(Dependencies deps) : m_deps(deps) {}

WrappedReminders& WrappedReminders::shared() {
    return SharedInstance<WrappedReminders>::get();
}

std::optional<WrappedReminders::Due> WrappedReminders::dueWeek(Date now) {
    const Date start = LocalCalendar::startOfMondayWeek(now);
    return dueIn(now, start, LocalCalendar::addDays(start, 7), LocalCalendar::addDays(start, -7),
                 WrappedPeriod::thisWeek, WrappedPeriod::lastWeek);
}

std::optional<WrappedReminders::Due> WrappedReminders::dueMonth(Date now) {
    return dueIn(now, LocalCalendar::startOfMonth(now), LocalCalendar::startOfMonth(now, 1),
                 LocalCalendar::startOfMonth(now, -1), WrappedPeriod::thisMonth, WrappedPeriod::lastMonth);
}

DesktopNotification WrappedReminders::notification(WrappedPeriod period) {
    const bool week = !isMonthLike(period);
    DesktopNotification n;
    n.tag = week ? "wrapped.week" : "wrapped.month";
    n.title = week ? "Your week, wrapped" : "Your month, wrapped";
    n.body = std::string("Focus hours, meetings, top apps and AI tokens of your ") +
             (week ? "week" : "month") + " are ready.";
    n.actions = {{std::string(kOpenAction), "Show recap"}};
    n.userInfo = {{"wrapped", std::string(rawName(period))}};
    return n;
}

void WrappedReminders::start() {
    check();
    m_timer = m_deps.scheduler.repeat(kCheckInterval, [this] { check(); });
}

void WrappedReminders::check() {
    if (m_deps.demoMode || !m_deps.settings.wrappedReminders()) return;
    const Date now = m_deps.clock.now();
    remind(dueWeek(now), kWeekKey);
    remind(dueMonth(now), kMonthKey);
}

void WrappedReminders::remind(const std::optional<Due>& due, std::string_view storeKey) {
    if (!due || m_deps.defaults.string(storeKey) == due->key) return;
    // Remembered before posting: a failed post is logged, never retried every few minutes.
    m_deps.defaults.set(storeKey, due->key);
    if (!m_deps.service) return;
    DebugLog::write(
        [&] { return "wrapped: reminder for " + std::string(rawName(due->period)) + " " + due->key; });
    m_deps.service->post(notification(due->period), [](const std::string& error) {
        if (!error.empty()) DebugLog::write("wrapped: reminder not shown: " + error);
    });
}

}  // namespace vantrelle
