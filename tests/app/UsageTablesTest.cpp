#include <gtest/gtest.h>

#include "agents/AgentsTestSupport.h"
#include "app/UsageTables.h"

namespace vantrelle {
namespace {

using testing::iso;

AIUsageEvent event(std::string_view at, std::string session, std::string model, std::int64_t input,
                   AgentTool tool = AgentTool::claudeCode) {
    AIUsageEvent e;
    e.timestamp = iso(at);
    e.sessionId = std::move(session);
    e.model = std::move(model);
    e.tool = tool;
    e.input = input;
    return e;
}

class UsageTablesTest : public ::testing::Test {
protected:
    UsageTablesTest() { testing::useTimeZone("America/New_York"); }
    ~UsageTablesTest() override { testing::useTimeZone("UTC"); }

    std::vector<UsageRow> rows(UsageGrouping grouping, UsageRange range = {},
                               std::string_view now = "2030-02-01T12:00:00Z") {
        return usageRows(grouping, events, sessions, range, iso(now));
    }
    // Each row's key and input tokens.
    using KeyedInput = std::vector<std::pair<std::string, std::int64_t>>;
    static KeyedInput inputs(const std::vector<UsageRow>& rows) {
        KeyedInput result;
        for (const auto& row : rows) result.emplace_back(row.key, row.totals.input);
        return result;
    }

    AILogSnapshot::Events events{
        event("2030-01-31T04:59:00Z", "a", "claude-sonnet-4", 1),  // 30 January in New York
        event("2030-01-31T05:00:00Z", "a", "claude-sonnet-4", 10),
        event("2030-01-31T06:00:00Z", "b", "gpt-5", 100, AgentTool::codex),
        event("2030-02-01T09:30:00Z", "b", "gpt-5", 1'000, AgentTool::codex),
        event("2030-02-01T10:00:00Z", "g", "gemini-2.5-pro", 10'000, AgentTool::gemini),
    };
    AILogSnapshot::Sessions sessions;
};

TEST_F(UsageTablesTest, DaysFollowTheLocalCalendarAndTheRangeIsInclusive) {
    const auto daily = rows(UsageGrouping::daily);
    EXPECT_EQ(inputs(daily), (KeyedInput{{"2030-01-30", 1}, {"2030-01-31", 110}, {"2030-02-01", 11'000}}));
    EXPECT_EQ(inputs(rows(UsageGrouping::daily, {"2030-01-31", "2030-01-31"})),
              (KeyedInput{{"2030-01-31", 110}}));
}

TEST_F(UsageTablesTest, WindowsLeaveGeminiOutAndMarkTheOpenOne) {
    auto windows = rows(UsageGrouping::blocks, {}, "2030-02-01T12:00:00Z");
    ASSERT_EQ(windows.size(), 2u);
    EXPECT_EQ(windows[0].totals.input, 111);
    EXPECT_EQ(windows[1].totals.input, 1'000);
    EXPECT_EQ(windows[0].label, "2030-01-30 23:00–04:00");
    EXPECT_TRUE(windows[1].live);
    EXPECT_DOUBLE_EQ(windows[1].secondsLeft, 2 * 3600);  // opened 09:00Z, ends 14:00Z

    windows = rows(UsageGrouping::blocks, {}, "2030-02-01T19:00:00Z");
    EXPECT_FALSE(windows.back().live);
}

}  // namespace
}  // namespace vantrelle
