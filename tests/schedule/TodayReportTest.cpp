#include <gtest/gtest.h>

#include "app/TodayReport.h"
#include "fakes/ScopedTimeZone.h"

namespace vantrelle {
namespace {

TEST(TodayReportTest, AcceptsOnlyWhatTheSynopsisSays) {
    const struct {
        const char* name;
        std::vector<std::string> arguments;
        bool valid;
    } rows[] = {
        {"everything",
         {"--json", "--calendars", "a", "b", "--now", "2026-11-03T08:00:00Z", "--tz", "UTC"},
         true},
        {"--calendars without a folder", {"--calendars", "--json"}, false},
        {"--now not a date", {"--now", "tomorrow"}, false},
        {"unknown option", {"--calendar", "x"}, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        std::string error;
        const auto options = parseTodayArguments(row.arguments, error);
        EXPECT_EQ(options.has_value(), row.valid) << error;
        EXPECT_EQ(error.empty(), row.valid);
    }
    std::string error;
    const auto options = parseTodayArguments({"--calendars", "a", "b", "--json"}, error);
    ASSERT_TRUE(options);
    EXPECT_EQ(options->calendars, (std::vector<std::filesystem::path>{"a", "b"})) << "up to the next option";
}

TEST(TodayReportTest, LinesShowTimesCalendarDeclineAndTheJoinLink) {
    testing::ScopedTimeZone zone("UTC");
    CalendarEvent event;
    event.title = "Budget";
    event.calendar = "Work";
    event.start = Date{1793692800};  // 2026-11-03 08:00 UTC
    event.end = event.start + 1800;
    event.notes = "https://zoom.us/j/1";
    event.attendees = {Attendee{"me@example.com", "", ParticipantStatus::declined, true}};
    EXPECT_EQ(todayReport({event}, event.start, false),
              "2026-11-03\n08:00-08:30  Budget  [Work]  declined  Zoom: https://zoom.us/j/1\n");
    EXPECT_EQ(todayReport({}, event.start, false), "2026-11-03\nno more events today\n");
}

TEST(TodayReportTest, JsonSurvivesTitlesThatAreNoUtf8) {
    CalendarEvent event;
    event.title = "bad \xff byte";
    EXPECT_NE(todayReport({event}, Date{1793692800}, true).find("\"joinLink\": null"), std::string::npos);
}

}  // namespace
}  // namespace vantrelle
