#include <gtest/gtest.h>

#include <optional>

#include "fakes/AppBasics.h"
#include "fakes/FakeCalendarSource.h"
#include "fakes/ScopedTimeZone.h"
#include "schedule/CalendarService.h"
#include "schedule/MeetingLink.h"

namespace vantrelle {
namespace {

using testing::FakeCalendarSource;

CalendarEvent meeting(std::string id, Date start, double length = 1800) {
    CalendarEvent event;
    event.identifier = id;
    event.title = std::move(id);
    event.start = start;
    event.end = start + length;
    return event;
}

class CalendarServiceTest : public ::testing::Test, protected testing::AppBasics {
protected:
    CalendarServiceTest() {
        m_headsUps = notifications.observeMessage(Notifications::meetingHeadsUp,
                                                  [this](const std::string& id) { announced.push_back(id); });
    }

    CalendarService& service() {
        if (!m_service) {
            m_service.emplace(CalendarService::Dependencies{
                source, settings, activities, notifications, scheduler, scheduler, environment, false, {}});
        }
        return *m_service;
    }
    void started() { service().start(); }
    // A fresh service over the same source and settings.
    void restarted() {
        m_service.reset();
        started();
    }
    Date now() const { return scheduler.now(); }
    // Adds a meeting `seconds` from now.
    CalendarEvent& add(std::string id, double seconds) {
        source.calendar.push_back(meeting(std::move(id), now() + seconds));
        return source.calendar.back();
    }
    [[nodiscard]] std::optional<LiveActivity> meetingSlot() const {
        return activities.activity(LiveActivityCenter::Source::meeting);
    }

    testing::ScopedTimeZone zone{"UTC"};
    FakeCalendarSource source;
    MapEnvironment environment;
    std::vector<std::string> announced;

private:
    Connection m_headsUps;
    std::optional<CalendarService> m_service;
};

TEST_F(CalendarServiceTest, ShowsAMeetingFromTenMinutesBeforeUntilTwoMinutesAfterItsStart) {
    const struct {
        const char* name;
        double offset;  // start minus now
        bool shown;
    } rows[] = {{"600 s ahead", 600, true},
                {"601 s ahead", 601, false},
                {"started 120 s ago", -120, true},
                {"started 121 s ago", -121, false}};
    started();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        source.calendar = {meeting(row.name, now() + row.offset)};
        service().refreshIfAuthorized();
        EXPECT_EQ(service().nextMeeting().has_value(), row.shown);
        EXPECT_EQ(meetingSlot().has_value(), row.shown);
    }
}

TEST_F(CalendarServiceTest, ARunningAllDayEventIsListedFirstButNeverTheNextMeeting) {
    auto& holiday = add("holiday", -3600);
    holiday.allDay = true;
    holiday.end = now() + 20000;
    add("", 300).title.clear();
    started();
    EXPECT_EQ(service().events()[0].identifier, "holiday");
    EXPECT_EQ(meetingSlot(), (LiveActivity{LiveActivity::Meeting{"Event", now() + 300}}));
}

TEST_F(CalendarServiceTest, TheHeadsUpFiresExactlyTheLeadTimeBeforeTheStart) {
    add("review", 3600);
    started();
    EXPECT_TRUE(service().isHeadsUpScheduled());
    scheduler.advance(3600 - 300 - 0.001);
    EXPECT_TRUE(announced.empty());
    scheduler.advance(0.001);
    EXPECT_EQ(announced, std::vector<std::string>{"review"});
    scheduler.advance(600);
    EXPECT_EQ(announced.size(), 1u) << "announced once";
}

TEST_F(CalendarServiceTest, AMeetingAddedInsideTheLeadTimeIsAnnouncedAtTheNextRefreshOrStoreChange) {
    started();
    add("soon", 200);
    scheduler.advance(29.9);
    EXPECT_TRUE(announced.empty());
    scheduler.advance(0.1);
    EXPECT_EQ(announced, std::vector<std::string>{"soon"});
    add("sooner", 100);
    source.changed();  // refreshes at once
    EXPECT_EQ(announced, (std::vector<std::string>{"soon", "sooner"}));
}

TEST_F(CalendarServiceTest, NeitherTheSwitchOffNorALeadOfZeroEverAnnounces) {
    for (const bool on : {false, true}) {
        SCOPED_TRACE(on ? "lead of zero" : "switched off");
        settings.setMeetingHeadsUp(on);
        settings.setMeetingHeadsUpMinutes(on ? 0 : 5);
        source.calendar = {meeting("m", now() + 200)};
        restarted();
        EXPECT_EQ(service().isHeadsUpScheduled(), on) << "a lead of zero still times the start";
        scheduler.advance(3600);
        EXPECT_TRUE(announced.empty());
    }
}

TEST_F(CalendarServiceTest, EndedEventsLeaveTheListAndTheMeetingSlotEmpties) {
    add("short", 60);
    source.calendar.back().end = now() + 600;
    add("later", 7200);
    started();
    scheduler.advance(660);
    EXPECT_EQ(service().events().size(), 1u);
    EXPECT_FALSE(meetingSlot());
}

TEST_F(CalendarServiceTest, AccessGivenLaterRefreshesAtOnceAndAccessLostKeepsTheEventsButNotTheSlot) {
    source.granted = false;
    add("m", 300);
    started();
    EXPECT_TRUE(service().events().empty());
    service().requestAccess();
    ASSERT_TRUE(meetingSlot());

    source.granted = false;
    scheduler.advance(30);
    EXPECT_FALSE(meetingSlot());
    EXPECT_EQ(service().events().size(), 1u);
}

TEST_F(CalendarServiceTest, TheTestHookMakesADesignReviewWithAZoomLinkAndIgnoresTheCalendars) {
    environment.set("VANTRELLE_TEST_MEETING", "120");
    add("real", 200);
    started();
    ASSERT_EQ(service().events().size(), 1u);
    EXPECT_EQ(service().events()[0].title, "Design review");
    EXPECT_TRUE(MeetingLink::url(service().events()[0]));
    EXPECT_EQ(announced, std::vector<std::string>{service().events()[0].identifier});
}

}  // namespace
}  // namespace vantrelle
