#include "schedule/CalendarService.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <ctime>

#include "schedule/CalendarDay.h"
#include "support/DebugLog.h"
#include "support/LocalCalendar.h"
#include "support/SharedInstance.h"

namespace vantrelle {

namespace {

std::optional<double> parseSeconds(const std::optional<std::string>& text) {
    if (!text || text->empty()) return std::nullopt;
    double value = 0;
    const char* end = text->data() + text->size();
    auto [next, error] = std::from_chars(text->data(), end, value);
    if (error != std::errc() || next != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

// "2026-11-03 09:00:00 +0000", the way a date describes itself in the log.
std::string describeDate(Date date) {
    if (!std::isfinite(date.seconds)) return "?";
    const auto seconds = static_cast<std::time_t>(std::floor(date.seconds));
    std::tm parts{};
    if (::gmtime_r(&seconds, &parts) == nullptr) return "?";
    char text[40];
    if (std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S +0000", &parts) == 0) return "?";
    return text;
}

std::vector<std::string> identifiers(const std::vector<CalendarEvent>& events) {
    std::vector<std::string> ids;
    ids.reserve(events.size());
    for (const auto& event : events) ids.push_back(event.identifier);
    return ids;
}

}  // namespace

CalendarService::CalendarService(Dependencies dependencies) : m_d(std::move(dependencies)) {
    const Date now = m_d.clock.now();
    if (auto seconds = parseSeconds(m_d.environment.get("VANTRELLE_TEST_MEETING"))) {
        m_testMeetingIn = seconds;
        m_status = Access::fullAccess;
        m_events = {testMeeting(now, *seconds)};
    } else if (m_d.demo) {
        m_status = Access::fullAccess;
        m_events = CalendarDay::arrange(m_d.demoEvents, now);
        updateNextMeeting(now);
    } else {
        m_status = m_d.source.access();
        m_d.source.observeChanges([this] { refreshIfAuthorized(); });
    }
}

CalendarService& CalendarService::shared() {
    return SharedInstance<CalendarService>::get();
}

void CalendarService::start() {
    refreshIfAuthorized();
    m_meetingTimer = m_d.scheduler.repeat(kRefreshInterval, [this] { refreshIfAuthorized(); });
}

void CalendarService::refreshIfAuthorized() {
    refresh(false);
}

void CalendarService::reload() {
    refresh(true);
}

void CalendarService::refresh(bool republish) {
    const Date now = m_d.clock.now();
    if (m_d.demo || m_testMeetingIn) {
        updateNextMeeting(now);
        return;
    }
    setStatus(m_d.source.access());
    if (m_status != Access::fullAccess) {
        if (republish && !m_events.empty()) {
            m_events.clear();
            eventsChanged.emit();
            updateNextMeeting(now);
        }
        m_d.activities.set(std::nullopt, LiveActivityCenter::Source::meeting);
        return;
    }
    const Date from = LocalCalendar::startOfDay(now);
    auto fetched = m_d.source.events(from, LocalCalendar::addDays(from, 1));
    CalendarDay::sortForReading(fetched);
    auto arranged = CalendarDay::arrange(std::move(fetched), now);
    // Membership and order only: an edited title waits until the list itself changes.
    if (republish ? arranged != m_events : identifiers(arranged) != identifiers(m_events)) {
        m_events = std::move(arranged);
        eventsChanged.emit();
    }
    updateNextMeeting(now);
}

void CalendarService::requestAccess() {
    m_d.source.requestAccess([this] {
        setStatus(m_d.source.access());
        DebugLog::write([&] {
            return "calendar: status after request " + std::to_string(m_status == Access::fullAccess ? 3 : 0);
        });
        refreshIfAuthorized();
    });
}

void CalendarService::setStatus(Access status) {
    if (status == m_status) return;
    m_status = status;
    statusChanged.emit();
}

void CalendarService::updateNextMeeting(Date now) {
    const CalendarEvent* candidate = nullptr;
    for (const auto& event : m_events) {
        const double ahead = event.start - now;
        if (!event.allDay && ahead <= kShowAhead && ahead >= -kShowAfter) {
            candidate = &event;
            break;
        }
    }
    const bool differs = !candidate || !m_nextMeeting || candidate->identifier != m_nextMeeting->identifier;
    if (differs && (candidate || m_nextMeeting)) {
        m_nextMeeting = candidate ? std::optional(*candidate) : std::nullopt;
        nextMeetingChanged.emit();
    }
    if (candidate) {
        const std::string title = candidate->title.empty() ? "Event" : candidate->title;
        m_d.activities.set(LiveActivity{LiveActivity::Meeting{title, candidate->start}},
                           LiveActivityCenter::Source::meeting);
    } else {
        m_d.activities.set(std::nullopt, LiveActivityCenter::Source::meeting);
    }
    scheduleHeadsUp(now);
}

void CalendarService::scheduleHeadsUp(Date now) {
    m_headsUpTimer.cancel();
    if (m_d.demo || !m_d.settings.meetingHeadsUp()) return;
    const double lead = static_cast<double>(m_d.settings.meetingHeadsUpMinutes()) * 60.0;
    const CalendarEvent* later = nullptr;
    for (const auto& event : m_events) {
        if (event.allDay || !(event.start > now) || isDeclined(event) || m_announced.contains(key(event)))
            continue;
        const double toStart = event.start - now;
        if (toStart <= lead && toStart > kTooLate) {
            announce(event);
            return;
        }
        // Too close to start: left alone, unmarked, until it has started.
        if (toStart > lead && (!later || event.start < later->start)) later = &event;
    }
    if (!later) return;
    const double delay = (later->start - lead) - now;
    m_headsUpTimer = m_d.scheduler.schedule(delay, [this] { refreshIfAuthorized(); });
}

void CalendarService::announce(const CalendarEvent& event) {
    m_announced.insert(key(event));
    if (m_announced.size() >= kAnnouncedLimit) m_announced.clear();
    m_headsUpEventId = event.identifier;
    headsUpChanged.emit();
    DebugLog::write([&] {
        return "calendar: heads-up for " + (event.title.empty() ? std::string("event") : event.title) +
               " starting " + describeDate(event.start);
    });
    m_d.notifications.post(Notifications::meetingHeadsUp, event.identifier);
}

std::string CalendarService::key(const CalendarEvent& event) {
    char digits[64];
    auto [end, error] =
        std::to_chars(digits, digits + sizeof digits, event.start.seconds, std::chars_format::fixed);
    return event.identifier + "|" + (error == std::errc() ? std::string(digits, end) : std::string("?"));
}

CalendarEvent CalendarService::testMeeting(Date now, double seconds) {
    CalendarEvent event;
    event.identifier = "vantrelle-test-meeting";
    event.title = "Design review";
    event.calendar = "Test";
    event.start = now + seconds;
    event.end = event.start + 1800.0;
    event.notes = "Join: https://zoom.us/j/5550123456";
    return event;
}

}  // namespace vantrelle
