#include <gtest/gtest.h>

#include "AgentsTestSupport.h"
#include "agents/UsageSummary.h"

namespace vantrelle {
namespace {

using testing::iso;

AIUsageEvent event(std::string_view at, std::string session, std::int64_t input,
                   AgentTool tool = AgentTool::claudeCode) {
    AIUsageEvent e;
    e.timestamp = iso(at);
    e.sessionId = std::move(session);
    e.tool = tool;
    e.input = input;
    return e;
}

AISessionMeta meta(std::string id) {
    AISessionMeta m;
    m.sessionId = std::move(id);
    m.cwd = "/code/shop";
    return m;
}

class UsageSummaryTest : public ::testing::Test {
protected:
    UsageSummaryTest() { testing::useTimeZone("Asia/Kolkata"); }  // UTC+5:30: days don't start at 00:00Z
    ~UsageSummaryTest() override { testing::useTimeZone("UTC"); }

    UsageSummary summarize(std::string_view now, std::set<AgentTool> alive = {}, std::int64_t budget = 0) {
        return summarizeUsage({events, sessions, iso(now), std::move(alive), budget});
    }

    AILogSnapshot::Events events;
    AILogSnapshot::Sessions sessions;
};

TEST_F(UsageSummaryTest, DaysFollowTheLocalCalendarAndTodayCountsDistinctSessions) {
    // Local midnight of 2 January is 18:30Z on 1 January.
    events = {event("2030-01-01T18:29:59Z", "a", 1), event("2030-01-01T18:30:00Z", "a", 10),
              event("2030-01-02T09:00:00Z", "b", 100), event("2029-12-26T18:29:59Z", "c", 1'000)};
    const auto summary = summarize("2030-01-02T10:00:00Z");

    EXPECT_EQ(summary.today.input, 110);
    EXPECT_EQ(summary.today.sessions, 2);
    ASSERT_EQ(summary.last7Days.size(), 7u);
    EXPECT_EQ(summary.last7Days.back().date, iso("2030-01-01T18:30:00Z"));
    EXPECT_EQ(summary.last7Days[5].tokens, 1);
    // The event a second before the oldest bucket is outside the week.
    EXPECT_EQ(summary.last7Days.front().date, iso("2029-12-26T18:30:00Z"));
    EXPECT_EQ(summary.last7Days.front().tokens, 0);
}

TEST_F(UsageSummaryTest, GeminiCountsForTheDayButHasNoWindow) {
    events = {event("2030-01-02T09:10:00Z", "g", 500, AgentTool::gemini)};
    auto summary = summarize("2030-01-02T09:20:00Z");
    EXPECT_EQ(summary.today.input, 500);
    EXPECT_FALSE(summary.block);

    events.push_back(event("2030-01-02T09:15:00Z", "c", 300'000));
    summary = summarize("2030-01-02T09:20:00Z");
    ASSERT_TRUE(summary.block);
    // Kolkata's full hours fall at half past in UTC: 09:15Z is 14:45 there, so the window opened at
    // 14:00, 08:30Z, and has run 50 minutes.
    EXPECT_EQ(summary.block->start, iso("2030-01-02T08:30:00Z"));
    EXPECT_DOUBLE_EQ(summary.block->burnTokensPerMinute, 300'000.0 / 50);
    EXPECT_EQ(summary.block->projectedTokens, 300'000 / 50 * 300);  // at this pace for the five hours
}

TEST_F(UsageSummaryTest, ActiveTimeCapsPausesAtTenMinutesAndCountsTheRunningTail) {
    events = {event("2030-01-02T09:00:00Z", "s", 1), event("2030-01-02T09:05:00Z", "s", 1),
              event("2030-01-02T10:05:00Z", "s", 1)};
    sessions.emplace("s", meta("s"));
    const auto done = summarize("2030-01-02T10:05:20Z");
    ASSERT_EQ(done.sessions.size(), 1u);
    EXPECT_EQ(done.sessions[0].state, AgentSession::State::done);
    EXPECT_DOUBLE_EQ(done.sessions[0].activeSeconds, 300 + 600);

    const auto running = summarize("2030-01-02T10:05:20Z", {AgentTool::claudeCode});
    EXPECT_EQ(running.sessions[0].state, AgentSession::State::running);
    EXPECT_DOUBLE_EQ(running.sessions[0].activeSeconds, 300 + 600 + 20);
}

TEST_F(UsageSummaryTest, WindowsOpenAtTheFullHourAndTheLastStaysUntilFiveHoursOfSilence) {
    testing::useTimeZone("UTC");
    events = {event("2030-01-01T09:10:00Z", "s", 100), event("2030-01-01T13:59:00Z", "s", 100),
              event("2030-01-01T14:00:00Z", "s", 100)};
    const auto found = usageBlocks(sortedByTime(events));
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].start, iso("2030-01-01T09:00:00Z"));
    EXPECT_EQ(found[0].tokens, 200);
    EXPECT_EQ(found[1].start, iso("2030-01-01T14:00:00Z"));

    // Its budget is the heaviest window's unless one is set.
    events = {event("2030-01-01T01:00:00Z", "big", 3'000'000), event("2030-01-01T09:10:00Z", "a", 100),
              event("2030-01-01T13:50:00Z", "a", 100)};
    const auto summary = summarize("2030-01-01T18:40:00Z");
    ASSERT_TRUE(summary.block);
    EXPECT_EQ(summary.block->start, iso("2030-01-01T09:00:00Z"));
    EXPECT_EQ(summary.block->budget, 3'000'000);
    EXPECT_EQ(summarize("2030-01-01T18:40:00Z", {}, 2'000'000).block->budget, 2'000'000);
    EXPECT_FALSE(summarize("2030-01-01T18:50:00Z").block);
}

TEST_F(UsageSummaryTest, ASessionFromJustBeforeMidnightIsListedForTwoMinutesAndAtMostFiftyAre) {
    testing::useTimeZone("UTC");
    events = {event("2030-01-01T23:59:00Z", "late", 1)};
    sessions.emplace("late", meta("late"));
    EXPECT_EQ(summarize("2030-01-02T00:00:30Z").sessions.size(), 1u);
    EXPECT_TRUE(summarize("2030-01-02T00:02:00Z").sessions.empty());

    for (int i = 0; i < 51; ++i) {
        const std::string id = "s" + std::to_string(i);
        events.push_back(event("2030-01-02T10:00:00Z", id, 1));
        sessions.emplace(id, meta(id));
    }
    EXPECT_EQ(summarize("2030-01-02T18:40:00Z").sessions.size(), 50u);
}

}  // namespace
}  // namespace vantrelle
