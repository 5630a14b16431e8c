#include <gtest/gtest.h>

#include "AgentsTestSupport.h"
#include "activity/LiveActivityCenter.h"
#include "agents/AIUsageModel.h"
#include "agents/UsageSummary.h"
#include "catalog/AppSettings.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakeProcessTable.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "support/MemoryDefaultsStore.h"
#include "support/NotificationCenter.h"
#include "wrapped/WrappedHistory.h"

namespace vantrelle {
namespace {

using testing::iso;

class AIUsageModelTest : public ::testing::Test {
protected:
    AIUsageModelTest() { testing::useTimeZone("UTC"); }

    testing::TempDir home;
    MapEnvironment environment;
    VirtualScheduler clock{iso("2030-01-01T18:40:00Z")};
    InlineQueueFactory queues;
    testing::FakeProcessTable processes;
    MemoryDefaultsStore defaults;
    NotificationCenter notifications;
    testing::FakeLoginItem loginItem;
    AppSettings settings{defaults, notifications, loginItem, clock};
    LiveActivityCenter center{clock};
    testing::TempDir data;
    WrappedHistory history{data / "wrapped-history.json", clock, false};
    AIUsageModel model{
        {environment, home.path(), clock, clock, queues, processes, settings, center, &history, false}};

    // One Claude Code session file with one reply at `time`, modified then.
    void session(std::string_view id, std::string_view time, std::int64_t input = 100,
                 std::string_view project = "app") {
        const std::string relative =
            ".claude/projects/" + std::string(project) + "/" + std::string(id) + ".jsonl";
        const std::string prompt = R"({"type":"user","cwd":"/home/dev/)" + std::string(project) +
                                   R"(","message":{"content":"go"}})"
                                   "\n";
        testing::setModified(home.write(relative, prompt + testing::claudeAssistant(id, "r", input, 0, time)),
                             iso(time));
    }

    void scanAt(std::string_view time) {
        clock.setNow(iso(time));
        model.rescan();
        clock.runUntilIdle();
    }

    void processList(std::vector<std::string> arguments) {
        processes.processes.clear();
        for (auto& line : arguments) processes.processes.push_back({1, "/usr/bin/env", line});
        model.pollProcesses();
        clock.runUntilIdle();
    }
};

// The figures' rules are UsageSummaryTest's; here, that a scan's figures and the budget setting arrive.
TEST_F(AIUsageModelTest, AScanReachesTheFiguresTheLedgerAndTheRecapQueries) {
    session("big", "2030-01-01T01:00:00Z", 3'000'000 - 7);
    session("small", "2030-01-01T17:00:00Z", 500'000 - 7, "web");
    scanAt("2030-01-01T18:00:00Z");
    ASSERT_TRUE(model.block());
    EXPECT_EQ(model.block()->tokens, 500'000);
    settings.setAiBlockTokenBudget(2'000'000);
    scanAt("2030-01-01T18:00:00Z");
    EXPECT_EQ(model.block()->budget, 2'000'000);
    EXPECT_EQ(history.days().at("2030-01-01").aiTokens, 3'500'000);
    EXPECT_EQ(model.last7Days().back().tokens, 3'500'000);

    EXPECT_EQ(model.tokens(iso("2030-01-01T17:00:00Z"), iso("2030-01-01T18:00:00Z")), 500'000);
    EXPECT_EQ(model.topProject(iso("2030-01-01T00:00:00Z"), iso("2030-01-02T00:00:00Z")),
              (std::pair<std::string, std::int64_t>{"app", 3'000'000}));
    EXPECT_FALSE(model.topProject(iso("2030-01-03T00:00:00Z"), iso("2030-01-04T00:00:00Z")));
}

TEST_F(AIUsageModelTest, SessionStatesFollowTheProcessOfTheirTool) {
    session("a", "2030-01-01T18:39:31Z");
    processList({"claude --resume"});
    scanAt("2030-01-01T18:40:00Z");
    ASSERT_EQ(model.sessions().size(), 1u);
    ASSERT_TRUE(center.current());
    EXPECT_EQ(center.current()->as<LiveActivity::AI>()->project, "app");

    processList({"/Applications/Claude.app/claude", "vim notes"});
    EXPECT_EQ(model.sessions()[0].state, AgentSession::State::done);
    // The session that ended flashes once.
    ASSERT_TRUE(center.activity(LiveActivityCenter::Source::flash));
    clock.advance(4);
    EXPECT_FALSE(center.current());

    processes.failing = true;
    model.pollProcesses();
    clock.runUntilIdle();
    EXPECT_TRUE(model.aliveTools().empty());
}

TEST_F(AIUsageModelTest, The80PercentFlashComesOncePerWindow) {
    settings.setAiBlockTokenBudget(1000);
    session("a", "2030-01-01T18:00:00Z", 800 - 7);
    scanAt("2030-01-01T18:10:00Z");
    auto flash = center.activity(LiveActivityCenter::Source::flash);
    ASSERT_TRUE(flash);
    EXPECT_EQ(flash->as<LiveActivity::AI>()->project, "80% of window");
    clock.advance(5);
    scanAt("2030-01-01T18:11:00Z");
    EXPECT_FALSE(center.activity(LiveActivityCenter::Source::flash));

    // A new window flashes again; jumping past 100% shows only the limit.
    session("b", "2030-01-02T09:00:00Z", 1500 - 7);
    scanAt("2030-01-02T09:01:00Z");
    flash = center.activity(LiveActivityCenter::Source::flash);
    ASSERT_TRUE(flash);
    EXPECT_EQ(flash->as<LiveActivity::AI>()->project, "Window limit");
    EXPECT_EQ(flash->as<LiveActivity::AI>()->blockProgress, 1.0);
}

TEST_F(AIUsageModelTest, TimersScanEveryTwentySecondsOrFiveWhileActive) {
    session("a", "2030-01-01T18:30:00Z");
    clock.setNow(iso("2030-01-01T18:40:00Z"));
    model.start();
    clock.runUntilIdle();
    const auto first = model.lastScan();
    ASSERT_TRUE(first);
    clock.advance(19);
    EXPECT_EQ(model.lastScan(), first);
    clock.advance(1);
    EXPECT_EQ(model.lastScan(), *first + 20.0);
    model.setActive(true);
    clock.advance(5);
    EXPECT_EQ(model.lastScan(), *first + 25.0);
}

}  // namespace
}  // namespace vantrelle
