#include <gtest/gtest.h>

#include "app/TodayReport.h"
#include "fakes/ScopedTimeZone.h"

namespace vantrelle {
namespace {

struct ArgumentCase {
    const char* name;
    std::vector<std::string> arguments;
    bool valid;
};

class TodayArgumentsTest : public ::testing::TestWithParam<ArgumentCase> {};

TEST_P(TodayArgumentsTest, AcceptsOnlyWhatTheSynopsisSays) {
    std::string error;
    const auto options = parseTodayArguments(GetParam().arguments, error);
    EXPECT_EQ(options.has_value(), GetParam().valid) << GetParam().name << ": " << error;
    if (!GetParam().valid) {
        EXPECT_FALSE(error.empty());
    }
}

INSTANTIATE_TEST_SUITE_P(Arguments, TodayArgumentsTest,
                         ::testing::Values(ArgumentCase{"Nothing", {}, true},
                                           ArgumentCase{"Everything",
                                                        {"--json", "--calendars", "a", "b", "--now",
                                                         "2026-11-03T08:00:00Z", "--tz", "UTC"},
                                                        true},
                                           ArgumentCase{
                                               "CalendarsWithoutFolder", {"--calendars", "--json"}, false},
                                           ArgumentCase{"NowNotADate", {"--now", "tomorrow"}, false},
                                           ArgumentCase{"TzWithoutValue", {"--tz"}, false},
                                           ArgumentCase{"Unknown", {"--calendar", "x"}, false}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(TodayReportTest, CalendarsTakeEveryFolderUpToTheNextOption) {
    std::string error;
    auto options = parseTodayArguments({"--calendars", "a", "b", "--json"}, error);
    ASSERT_TRUE(options);
    EXPECT_EQ(options->calendars, (std::vector<std::filesystem::path>{"a", "b"}));
    EXPECT_TRUE(options->json);
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
    const auto json = todayReport({event}, Date{1793692800}, true);
    EXPECT_NE(json.find("\"title\""), std::string::npos);
    EXPECT_NE(json.find("\"joinLink\": null"), std::string::npos);
}

}  // namespace
}  // namespace vantrelle
