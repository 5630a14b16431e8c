#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

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

TEST_F(UsageTablesTest, DaysAndMonthsFollowTheLocalCalendarAndTheRangeIsInclusive) {
    const auto daily = rows(UsageGrouping::daily);
    EXPECT_EQ(inputs(daily), (KeyedInput{{"2030-01-30", 1}, {"2030-01-31", 110}, {"2030-02-01", 11'000}}));
    EXPECT_EQ(daily[1].models.size(), 2u);
    EXPECT_EQ(daily[1].models.at("gpt-5").input, 100);
    EXPECT_EQ(inputs(rows(UsageGrouping::daily, {"2030-01-31", "2030-01-31"})),
              (KeyedInput{{"2030-01-31", 110}}));
    EXPECT_EQ(inputs(rows(UsageGrouping::monthly, {"2030-01-31", ""})),
              (KeyedInput{{"2030-01", 110}, {"2030-02", 11'000}}));
}

TEST_F(UsageTablesTest, SessionsAreNamedByProjectAndOrderedByLastActivity) {
    AISessionMeta meta;
    meta.cwd = "/home/me/code/shop";
    sessions.emplace("b", meta);
    const auto bySession = rows(UsageGrouping::session);
    EXPECT_EQ(inputs(bySession), (KeyedInput{{"a", 11}, {"b", 1'100}, {"g", 10'000}}));
    EXPECT_EQ(bySession[0].label, "a");  // no log record: the id stands in
    EXPECT_EQ(bySession[1].label, "shop");
    EXPECT_EQ(bySession[1].lastActivity, "2030-02-01T09:30:00.000Z");
}

TEST_F(UsageTablesTest, WindowsLeaveGeminiOutAndMarkTheOpenOne) {
    auto windows = rows(UsageGrouping::blocks, {}, "2030-02-01T12:00:00Z");
    ASSERT_EQ(windows.size(), 2u);
    EXPECT_EQ(windows[0].totals.input, 111);
    EXPECT_EQ(windows[1].totals.input, 1'000);
    EXPECT_EQ(windows[0].label, "2030-01-30 23:00–04:00");
    EXPECT_FALSE(windows[0].live);
    EXPECT_TRUE(windows[1].live);
    EXPECT_DOUBLE_EQ(windows[1].secondsLeft, 2 * 3600);  // opened 09:00Z, ends 14:00Z

    windows = rows(UsageGrouping::blocks, {}, "2030-02-01T19:00:00Z");
    EXPECT_FALSE(windows.back().live);
}

TEST_F(UsageTablesTest, TheTableFitsEightyColumnsWithLongNamesAndBreakdown) {
    AISessionMeta meta;
    meta.cwd = "/home/me/a-project-name-much-longer-than-the-column-allows";
    sessions.emplace("a", meta);
    events[0].input = 9'000'000'000'000;
    const std::string table = usageTableText(UsageGrouping::session, rows(UsageGrouping::session),
                                             {.breakdown = true, .colour = false});
    std::istringstream lines(table);
    int count = 0;
    for (std::string line; std::getline(lines, line); ++count) {
        std::size_t columns = 0;
        for (char c : line) columns += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
        EXPECT_LE(columns, 80u) << line;
    }
    EXPECT_GT(count, 5);
    EXPECT_NE(table.find("a-project-name-much-l…"), std::string::npos) << table;
    EXPECT_EQ(table.find('\x1b'), std::string::npos) << "no colour unless asked";
    EXPECT_NE(
        usageTableText(UsageGrouping::daily, rows(UsageGrouping::daily), {.colour = true}).find("\x1b[1m"),
        std::string::npos);
    EXPECT_EQ(usageTableText(UsageGrouping::daily, {}, {}), "No usage in this range.\n");
}

TEST_F(UsageTablesTest, JsonNamesEachReportsRowsAndTotals) {
    const auto daily =
        nlohmann::json::parse(usageTableJson(UsageGrouping::daily, rows(UsageGrouping::daily), false));
    ASSERT_EQ(daily["daily"].size(), 3u);
    EXPECT_EQ(daily["daily"][1]["date"], "2030-01-31");
    EXPECT_EQ(daily["daily"][1]["input"], 110);
    EXPECT_FALSE(daily["daily"][1].contains("models"));
    EXPECT_EQ(daily["totals"]["input"], 11'111);

    const auto blocks =
        nlohmann::json::parse(usageTableJson(UsageGrouping::blocks, rows(UsageGrouping::blocks), true));
    EXPECT_EQ(blocks["blocks"][1]["live"], true);
    EXPECT_EQ(blocks["blocks"][1]["models"][0]["model"], "gpt-5");
    EXPECT_TRUE(blocks["blocks"][1].contains("projectedTokens"));
}

}  // namespace
}  // namespace vantrelle
