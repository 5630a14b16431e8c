#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "fakes/LogCapture.h"
#include "fakes/ScopedTimeZone.h"
#include "fakes/TempDir.h"
#include "schedule/CalendarDay.h"
#include "schedule/CalendarLibrary.h"
#include "schedule/IcsFixtures.h"
#include "schedule/MeetingLink.h"
#include "support/LocalCalendar.h"

namespace vantrelle {
namespace {

using testing::calendar;
using testing::localTime;
using testing::utcTime;

// The user's calendars live in Berlin; several files say otherwise.
class CalendarLibraryTest : public ::testing::Test {
protected:
    std::vector<CalendarEvent> day(int year, int month, int dayOfMonth) {
        library.refresh();
        const Date from = localTime(year, month, dayOfMonth);
        auto events = library.events(from, LocalCalendar::addDays(from, 1));
        CalendarDay::sortForReading(events);
        return events;
    }
    // Each event of the day as its title and its start and end.
    using Spans = std::vector<std::tuple<std::string, Date, Date>>;
    Spans spans(int year, int month, int dayOfMonth) {
        Spans result;
        for (const auto& event : day(year, month, dayOfMonth))
            result.emplace_back(event.title, event.start, event.end);
        return result;
    }
    std::vector<std::string> titles(int year, int month, int dayOfMonth) {
        std::vector<std::string> result;
        for (const auto& event : day(year, month, dayOfMonth)) result.push_back(event.title);
        return result;
    }
    void write(std::string_view relative, std::string_view body, std::string_view header = "") {
        dir.write(relative, calendar(body, header));
    }

    testing::ScopedTimeZone zone{"Europe/Berlin"};
    testing::TempDir dir;
    CalendarLibrary library{{dir / "calendars"}, {"Me@Example.com"}};
};

constexpr std::string_view kWeekly =
    "BEGIN:VEVENT\nUID:standup\nSUMMARY:Standup\n"
    "DTSTART;TZID=Europe/Berlin:20261102T100000\nDTEND;TZID=Europe/Berlin:20261102T101500\n"
    "RRULE:FREQ=WEEKLY;BYDAY=MO\nEXDATE;TZID=Europe/Berlin:20261109T100000\nEND:VEVENT\n"
    "BEGIN:VEVENT\nUID:standup\nSUMMARY:Standup (moved)\nRECURRENCE-ID;TZID=Europe/Berlin:20261116T100000\n"
    "DTSTART;TZID=Europe/Berlin:20261116T150000\nDTEND;TZID=Europe/Berlin:20261116T151500\nEND:VEVENT\n";

TEST_F(CalendarLibraryTest, WeeklyMeetingSkipsItsExdateAndShowsTheMovedOccurrenceOnlyAtItsNewTime) {
    write("calendars/work/standup.ics", kWeekly);
    EXPECT_EQ(spans(2026, 11, 2),
              (Spans{{"Standup", localTime(2026, 11, 2, 10), localTime(2026, 11, 2, 10, 15)}}));
    EXPECT_TRUE(day(2026, 11, 9).empty());
    EXPECT_EQ(spans(2026, 11, 16),
              (Spans{{"Standup (moved)", localTime(2026, 11, 16, 15), localTime(2026, 11, 16, 15, 15)}}));
    // Far from DTSTART, the walk still lands on the right Monday.
    EXPECT_EQ(titles(2031, 3, 3), std::vector<std::string>{"Standup"});
}

TEST_F(CalendarLibraryTest, RdateAddsAnOccurrenceAndCountEndsTheSeries) {
    write("calendars/work/review.ics",
          "BEGIN:VEVENT\nUID:review\nSUMMARY:Review\nDTSTART:20261102T090000Z\nDURATION:PT30M\n"
          "RRULE:FREQ=DAILY;COUNT=3\nRDATE:20261110T130000Z\nEND:VEVENT\n");
    EXPECT_EQ(titles(2026, 11, 4), std::vector<std::string>{"Review"});
    EXPECT_TRUE(day(2026, 11, 5).empty());
    EXPECT_EQ(spans(2026, 11, 10),
              (Spans{{"Review", utcTime(2026, 11, 10, 13), utcTime(2026, 11, 10, 13, 30)}}));
}

TEST_F(CalendarLibraryTest, AllDayEventsCoverTheirLocalDaysAndNoMore) {
    write("calendars/home/trip.ics",
          "BEGIN:VEVENT\nUID:holiday\nSUMMARY:Holiday\nDTSTART;VALUE=DATE:20261103\nEND:VEVENT\n"
          "BEGIN:VEVENT\nUID:trip\nSUMMARY:Trip\nDTSTART;VALUE=DATE:20261105\nDTEND;VALUE=DATE:20261107\nEND:"
          "VEVENT\n");
    EXPECT_EQ(spans(2026, 11, 3), (Spans{{"Holiday", localTime(2026, 11, 3), localTime(2026, 11, 4)}}));
    EXPECT_TRUE(day(2026, 11, 4).empty());
    EXPECT_EQ(titles(2026, 11, 6), std::vector<std::string>{"Trip"});
    EXPECT_TRUE(day(2026, 11, 7).empty());
}

TEST_F(CalendarLibraryTest, TheUsersOwnAttendeeEntryDecidesWhetherTheMeetingIsDeclined) {
    write("calendars/work/invites.ics",
          "BEGIN:VEVENT\nUID:declined\nSUMMARY:Budget\nDTSTART:20261103T090000Z\nDTEND:20261103T100000Z\n"
          "ATTENDEE;PARTSTAT=ACCEPTED:mailto:boss@example.com\n"
          "ATTENDEE;PARTSTAT=DECLINED:MAILTO:me@example.com\nEND:VEVENT\n"
          "BEGIN:VEVENT\nUID:others\nSUMMARY:Others\nDTSTART:20261103T110000Z\n"
          "ATTENDEE;PARTSTAT=DECLINED:mailto:boss@example.com\n"
          "ATTENDEE;PARTSTAT=ACCEPTED:mailto:me@example.com\nEND:VEVENT\n");
    const auto events = day(2026, 11, 3);
    ASSERT_EQ(events.size(), 2u);
    EXPECT_TRUE(isDeclined(events[0]));
    EXPECT_FALSE(isDeclined(events[1]));

    library.setUserAddresses({"someone.else@example.com"});
    EXPECT_FALSE(isDeclined(day(2026, 11, 3)[0])) << "another user didn't decline anything";
}

// Which field wins is MeetingLinkTest's table; this is the text of a real file reaching it, unescaped.
TEST_F(CalendarLibraryTest, LocationAndDescriptionAreReadUnescapedAndTheLinkFoundInThem) {
    write("calendars/work/calls.ics",
          "BEGIN:VEVENT\nUID:b\nSUMMARY:Notes call\nDTSTART:20261103T100000Z\n"
          "DESCRIPTION:Agenda\\nJoin: https://zoom.us/j/9876543210\\, thanks\nEND:VEVENT\n");
    const auto events = day(2026, 11, 3);
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].notes, "Agenda\nJoin: https://zoom.us/j/9876543210, thanks");
    EXPECT_EQ(MeetingLink::url(events[0]), "https://zoom.us/j/9876543210");
}

TEST_F(CalendarLibraryTest, ZonedTimesFromTheDatabaseAndFromTheFilesOwnDefinitionAgree) {
    write("calendars/work/newyork.ics",
          "BEGIN:VEVENT\nUID:ny\nSUMMARY:Database zone\nDTSTART;TZID=America/New_York:20261103T090000\n"
          "DTEND;TZID=America/New_York:20261103T100000\nEND:VEVENT\n"
          "BEGIN:VEVENT\nUID:office\nSUMMARY:Own zone\nDTSTART;TZID=Office Time:20261103T090000\n"
          "DTEND;TZID=Office Time:20261103T100000\nEND:VEVENT\n",
          testing::kCustomNewYork);
    const auto events = day(2026, 11, 3);
    ASSERT_EQ(events.size(), 2u);
    for (const auto& event : events) {
        EXPECT_EQ(event.start, utcTime(2026, 11, 3, 14)) << event.title;  // EST is UTC-5
        EXPECT_EQ(event.end - event.start, 3600.0) << event.title;
    }
}

TEST_F(CalendarLibraryTest, OnTheDstChangeDayWallClockTimesStayAndTheDayHasTwentyFiveHours) {
    // Berlin leaves summer time on 25 October 2026 at 03:00.
    write(
        "calendars/home/daily.ics",
        "BEGIN:VEVENT\nUID:daily\nSUMMARY:Daily\nDTSTART;TZID=Europe/Berlin:20261023T090000\nDURATION:PT1H\n"
        "RRULE:FREQ=DAILY\nEND:VEVENT\n"
        "BEGIN:VEVENT\nUID:late\nSUMMARY:Late\nDTSTART:20261025T223000Z\nDURATION:PT15M\nEND:VEVENT\n"
        "BEGIN:VEVENT\nUID:sunday\nSUMMARY:Sunday\nDTSTART;VALUE=DATE:20261025\nEND:VEVENT\n");
    EXPECT_EQ(day(2026, 10, 24)[0].start, utcTime(2026, 10, 24, 7));
    const auto change = day(2026, 10, 25);
    ASSERT_EQ(change.size(), 3u);
    EXPECT_EQ(change[0].title, "Sunday");
    EXPECT_EQ(change[0].end - change[0].start, 25 * 3600.0);
    EXPECT_EQ(change[1].start, utcTime(2026, 10, 25, 8));  // still 09:00 on the wall
    EXPECT_EQ(change[2].title, "Late") << "23:30 by winter time lies in the day's 25th hour";
}

TEST_F(CalendarLibraryTest, FloatingTimesAreReadInTheLocalZone) {
    write("calendars/home/lunch.ics",
          "BEGIN:VEVENT\nUID:lunch\nSUMMARY:Lunch\nDTSTART:20261103T120000\nDTEND:20261103T130000\nEND:"
          "VEVENT\n");
    EXPECT_EQ(day(2026, 11, 3)[0].start, localTime(2026, 11, 3, 12));
    testing::ScopedTimeZone tokyo("Asia/Tokyo");
    CalendarLibrary elsewhere({dir / "calendars"}, {});
    elsewhere.refresh();
    const Date from = localTime(2026, 11, 3);
    const auto events = elsewhere.events(from, from + 86400.0);
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].start, utcTime(2026, 11, 3, 3));  // noon in Tokyo
}

TEST_F(CalendarLibraryTest, AMalformedFileIsLoggedAndTheGoodOnesBesideItStillShow) {
    testing::LogCapture log;
    write("calendars/work/good.ics",
          "BEGIN:VEVENT\nUID:g\nSUMMARY:Good\nDTSTART:20261103T090000Z\nEND:VEVENT\n");
    dir.write("calendars/work/bad.ics", "this is not\0 a calendar at all\n");
    write("calendars/home/alsogood.ics",
          "BEGIN:VEVENT\nUID:h\nSUMMARY:Also good\nDTSTART:20261103T100000Z\nEND:VEVENT\n"
          "BEGIN:VEVENT\nUID:x\nSUMMARY:Broken start\nDTSTART:2026-11-03 nonsense\nEND:VEVENT\n");
    EXPECT_EQ(titles(2026, 11, 3), (std::vector<std::string>{"Good", "Also good"}));
    EXPECT_NE(log.text().find("bad.ics"), std::string::npos) << log.text();
}

TEST_F(CalendarLibraryTest, ARefreshOverUnchangedFilesParsesNothingAndAChangeParsesOnlyThatFile) {
    write("calendars/work/a.ics", "BEGIN:VEVENT\nUID:a\nSUMMARY:A\nDTSTART:20261103T090000Z\nEND:VEVENT\n");
    write("calendars/work/b.ics", "BEGIN:VEVENT\nUID:b\nSUMMARY:B\nDTSTART:20261103T100000Z\nEND:VEVENT\n");
    library.refresh();
    EXPECT_FALSE(library.refresh());
    EXPECT_EQ(library.parseCount(), 2u);

    write("calendars/work/b.ics",
          "BEGIN:VEVENT\nUID:b\nSUMMARY:B renamed\nDTSTART:20261103T100000Z\nEND:VEVENT\n");
    EXPECT_TRUE(library.refresh());
    EXPECT_EQ(library.parseCount(), 3u) << "only the changed file";
    EXPECT_EQ(titles(2026, 11, 3), (std::vector<std::string>{"A", "B renamed"}));

    std::filesystem::remove(dir / "calendars/work/a.ics");
    EXPECT_EQ(titles(2026, 11, 3), std::vector<std::string>{"B renamed"});
}

}  // namespace
}  // namespace vantrelle
