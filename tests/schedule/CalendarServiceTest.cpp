#include <gtest/gtest.h>

#include <optional>

#include "fakes/AppBasics.h"
#include "fakes/FakeCalendarSource.h"
#include "fakes/LogCapture.h"
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
            m_service.emplace(CalendarService::Dependencies{source, settings, activities, notifications,
                                                            scheduler, scheduler, environment, demo,
                                                            demoEvents});
        }
        return *m_service;
    }
    CalendarService& started() {
        service().start();
        return *m_service;
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
    bool demo = false;
    std::vector<CalendarEvent> demoEvents;
    std::vector<std::string> announced;

private:
    Connection m_headsUps;
    std::optional<CalendarService> m_service;
};

struct WindowCase {
    const char* name;
    double offset;  // start minus now
    bool shown;
};

class NextMeetingWindowTest : public CalendarServiceTest, public ::testing::WithParamInterface<WindowCase> {};

TEST_P(NextMeetingWindowTest, ShowsAMeetingFromTenMinutesBeforeUntilTwoMinutesAfterItsStart) {
    const auto& row = GetParam();
    add("m", row.offset);
    started();
    EXPECT_EQ(service().nextMeeting().has_value(), row.shown) << row.name;
    EXPECT_EQ(meetingSlot().has_value(), row.shown) << row.name;
}

INSTANTIATE_TEST_SUITE_P(Bounds, NextMeetingWindowTest,
                         ::testing::Values(WindowCase{"Ahead600s", 600, true},
                                           WindowCase{"Ahead601s", 601, false},
                                           WindowCase{"Started120sAgo", -120, true},
                                           WindowCase{"Started121sAgo", -121, false}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(CalendarServiceTest, ARunningAllDayEventIsListedFirstButNeverTheNextMeeting) {
    auto& holiday = add("holiday", -3600);
    holiday.allDay = true;
    holiday.end = now() + 20000;
    add("", 300).title.clear();
    started();
    ASSERT_EQ(service().events().size(), 2u);
    EXPECT_EQ(service().events()[0].identifier, "holiday");
    ASSERT_TRUE(service().nextMeeting());
    EXPECT_EQ(service().nextMeeting()->identifier, "");
    EXPECT_EQ(meetingSlot(), (LiveActivity{LiveActivity::Meeting{"Event", now() + 300}}));
}

TEST_F(CalendarServiceTest, TheHeadsUpFiresExactlyTheLeadTimeBeforeTheStart) {
    testing::LogCapture log;
    add("review", 3600);
    started();
    EXPECT_TRUE(service().isHeadsUpScheduled());
    scheduler.advance(3600 - 300 - 0.001);
    EXPECT_TRUE(announced.empty());
    scheduler.advance(0.001);
    EXPECT_EQ(announced, std::vector<std::string>{"review"});
    EXPECT_EQ(service().headsUpEventId(), "review");
    EXPECT_NE(log.text().find("calendar: heads-up for review starting 2027-01-15 09:00:00 +0000"),
              std::string::npos)
        << log.text();
    scheduler.advance(600);
    EXPECT_EQ(announced.size(), 1u) << "announced once";
}

TEST_F(CalendarServiceTest, AMeetingCreatedThirtySecondsBeforeItsStartGetsNoHeadsUp) {
    settings.setMeetingHeadsUpMinutes(10);
    started();
    add("late", 30);
    source.changed();
    scheduler.advance(120);
    EXPECT_TRUE(announced.empty());
    EXPECT_TRUE(service().nextMeeting()) << "it still shows in the notch";
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

TEST_F(CalendarServiceTest, ADeclinedMeetingShowsButGetsNoHeadsUp) {
    auto& declined = add("declined", 240);
    declined.attendees = {Attendee{"me@example.com", "", ParticipantStatus::declined, true}};
    auto& other = add("others declined", 3600);
    other.attendees = {Attendee{"boss@example.com", "", ParticipantStatus::declined, false}};
    started();
    EXPECT_EQ(service().nextMeeting()->identifier, "declined");
    EXPECT_EQ(service().events().size(), 2u);
    scheduler.advance(3600);
    EXPECT_EQ(announced, std::vector<std::string>{"others declined"});
}

TEST_F(CalendarServiceTest, ALeadOfZeroSchedulesATimerAtTheStartAndNeverAnnounces) {
    settings.setMeetingHeadsUpMinutes(0);
    add("m", 900);
    started();
    EXPECT_TRUE(service().isHeadsUpScheduled());
    scheduler.advance(1500);
    EXPECT_TRUE(announced.empty());
}

TEST_F(CalendarServiceTest, TwoMeetingsAtOneStartAreAnnouncedOnePerPass) {
    add("a", 240);
    add("b", 240);
    started();
    EXPECT_EQ(announced, std::vector<std::string>{"a"});
    scheduler.advance(30);
    EXPECT_EQ(announced, (std::vector<std::string>{"a", "b"}));
}

TEST_F(CalendarServiceTest, TheHeadsUpSwitchOffMeansNoTimerAndNoAnnouncement) {
    settings.setMeetingHeadsUp(false);
    add("m", 200);
    add("later", 3600);
    started();
    EXPECT_FALSE(service().isHeadsUpScheduled());
    scheduler.advance(3600);
    EXPECT_TRUE(announced.empty());
}

TEST_F(CalendarServiceTest, AfterTwoHundredAndOneAnnouncementsTheSetEmptiesAndAMeetingIsAnnouncedAgain) {
    for (int i = 0; i < 201; ++i)
        add("m" + std::string(i < 10 ? "00" : i < 100 ? "0" : "") + std::to_string(i), 200);
    started();
    for (int i = 1; i < 201; ++i) service().refreshIfAuthorized();
    ASSERT_EQ(announced.size(), 201u);
    EXPECT_EQ(announced.back(), "m200");
    service().refreshIfAuthorized();
    ASSERT_EQ(announced.size(), 202u);
    EXPECT_EQ(announced.back(), "m000");
}

TEST_F(CalendarServiceTest, AMovedMeetingIsANewKeyAndIsAnnouncedAgain) {
    add("m", 200);
    started();
    ASSERT_EQ(announced.size(), 1u);
    source.calendar[0].start = now() + 240;
    service().refreshIfAuthorized();
    EXPECT_EQ(announced.size(), 1u) << "the same list: the held event keeps its old start";
    add("x", 5000);
    service().refreshIfAuthorized();
    EXPECT_EQ(announced.size(), 2u);
}

TEST_F(CalendarServiceTest, EndedEventsLeaveTheListAndTheMeetingSlotEmpties) {
    add("short", 60);
    source.calendar.back().end = now() + 600;
    add("later", 7200);
    started();
    EXPECT_EQ(service().events().size(), 2u);
    int changes = 0;
    auto connection = service().eventsChanged.connect([&] { ++changes; });
    scheduler.advance(660);
    EXPECT_EQ(service().events().size(), 1u);
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(meetingSlot());
}

TEST_F(CalendarServiceTest, AccessGivenLaterRefreshesAtOnceAndAccessLostKeepsTheEventsButNotTheSlot) {
    source.granted = false;
    add("m", 300);
    started();
    EXPECT_TRUE(service().events().empty());
    service().requestAccess();
    EXPECT_EQ(service().status(), CalendarService::Access::fullAccess);
    EXPECT_EQ(service().events().size(), 1u);
    ASSERT_TRUE(meetingSlot());

    source.granted = false;
    scheduler.advance(30);
    EXPECT_EQ(service().status(), CalendarService::Access::notDetermined);
    EXPECT_FALSE(meetingSlot());
    EXPECT_EQ(service().events().size(), 1u);
}

TEST_F(CalendarServiceTest, TheTestHookMakesADesignReviewWithAZoomLinkAndIgnoresTheCalendars) {
    environment.set("VANTRELLE_TEST_MEETING", "120");
    add("real", 200);
    started();
    ASSERT_EQ(service().events().size(), 1u);
    const auto& event = service().events()[0];
    EXPECT_EQ(event.title, "Design review");
    EXPECT_EQ(event.start, now() + 120);
    EXPECT_TRUE(MeetingLink::url(event));
    EXPECT_FALSE(source.isObserved());
    EXPECT_EQ(announced, std::vector<std::string>{event.identifier});
}

TEST_F(CalendarServiceTest, ATestHookThatIsNoNumberIsIgnored) {
    environment.set("VANTRELLE_TEST_MEETING", "soon");
    started();
    EXPECT_FALSE(service().testMeetingIn());
    EXPECT_TRUE(source.isObserved());
}

TEST_F(CalendarServiceTest, DemoRunsShowTheirEventsAndNeverAnnounce) {
    demo = true;
    demoEvents = {meeting("demo", now() + 200)};
    started();
    EXPECT_EQ(service().nextMeeting()->identifier, "demo");
    EXPECT_FALSE(source.isObserved());
    scheduler.advance(60);
    EXPECT_TRUE(announced.empty());
}

}  // namespace
}  // namespace vantrelle
