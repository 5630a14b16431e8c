#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "activity/LiveActivityCenter.h"
#include "catalog/AppSettings.h"
#include "platform/Clock.h"
#include "platform/Environment.h"
#include "platform/Scheduler.h"
#include "schedule/CalendarSource.h"
#include "support/NotificationCenter.h"
#include "support/Signal.h"

namespace vantrelle {

// Today's calendar: the sorted events, the meeting of the moment for the closed notch, and a one-time
// heads-up ahead of each meeting. Main thread only.
class CalendarService {
public:
    using Access = CalendarSource::Access;

    struct Dependencies {
        CalendarSource& source;
        AppSettings& settings;
        LiveActivityCenter& activities;
        NotificationCenter& notifications;
        Scheduler& scheduler;
        const Clock& clock;
        const Environment& environment;
        bool demo = false;
        std::vector<CalendarEvent> demoEvents;  // what demo runs show
    };

    static constexpr double kRefreshInterval = 30;
    static constexpr double kShowAhead = 600;  // the notch shows a meeting from 10 minutes before…
    static constexpr double kShowAfter = 120;  // …until 2 minutes after its start
    static constexpr double kTooLate = 60;     // no heads-up in the last minute
    static constexpr std::size_t kAnnouncedLimit = 201;

    explicit CalendarService(Dependencies dependencies);
    CalendarService(const CalendarService&) = delete;
    CalendarService& operator=(const CalendarService&) = delete;

    [[nodiscard]] static CalendarService& shared();

    // Refreshes, then every 30 seconds.
    void start();
    void refreshIfAuthorized();
    // After the calendar settings changed: reads again and publishes the list even when only the
    // events' contents differ (a new own address turns a meeting into a declined one), and with no
    // calendar left the events held go too. The heads-up rules run over the new list.
    void reload();
    void requestAccess();

    [[nodiscard]] const std::vector<CalendarEvent>& events() const { return m_events; }
    [[nodiscard]] Access status() const { return m_status; }
    [[nodiscard]] const std::optional<CalendarEvent>& nextMeeting() const { return m_nextMeeting; }
    [[nodiscard]] const std::optional<std::string>& headsUpEventId() const { return m_headsUpEventId; }
    [[nodiscard]] std::optional<double> testMeetingIn() const { return m_testMeetingIn; }
    [[nodiscard]] bool isHeadsUpScheduled() const { return m_headsUpTimer.isActive(); }

    // The identifier and the start: a moved meeting, and each instance of a series, is new.
    [[nodiscard]] static std::string key(const CalendarEvent& event);
    // The event the test hook makes: "Design review", `seconds` from now, with a Zoom link.
    [[nodiscard]] static CalendarEvent testMeeting(Date now, double seconds);

    Signal<> eventsChanged;
    Signal<> statusChanged;
    Signal<> nextMeetingChanged;
    Signal<> headsUpChanged;

private:
    void refresh(bool republish);
    void setStatus(Access status);
    void updateNextMeeting(Date now);
    void publishMeeting();
    void scheduleHeadsUp(Date now);
    void announce(const CalendarEvent& event);

    Dependencies m_d;
    RepeatingTimer m_meetingTimer;
    WorkItem m_headsUpTimer;
    std::set<std::string> m_announced;
    std::optional<std::string> m_headsUpEventId;
    std::vector<CalendarEvent> m_events;
    Access m_status = Access::notDetermined;
    std::optional<CalendarEvent> m_nextMeeting;
    std::optional<double> m_testMeetingIn;
};

}  // namespace vantrelle
