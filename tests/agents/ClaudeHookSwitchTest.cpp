#include <gtest/gtest.h>

#include "AgentsTestSupport.h"
#include "agents/ClaudeHookSwitch.h"
#include "fakes/ManualQueue.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::ManualQueueFactory;
using testing::TempDir;

class ClaudeHookSwitchTest : public ::testing::Test {
protected:
    fs::path settings() const { return dir / ".claude/settings.json"; }

    TempDir dir;
    AppPaths paths = testing::homeIn(dir.path());
    MapEnvironment environment;
    ClaudeHooks hooks{paths, environment};
    ManualQueueFactory queues;
    VirtualScheduler scheduler;
    ClaudeHookSwitch hookSwitch{hooks, queues, scheduler};
    int signals = 0;
    Connection counting = hookSwitch.changed.connect([this] { ++signals; });
};

TEST_F(ClaudeHookSwitchTest, TheFileIsTouchedOnlyOnTheQueueAndTheAnswerArrivesOnTheMainQueue) {
    hookSwitch.set(true);
    EXPECT_TRUE(hookSwitch.isBusy());
    EXPECT_FALSE(fs::exists(settings())) << "nothing is written on the calling thread";

    ASSERT_EQ(queues.runAll(), 1u);
    EXPECT_TRUE(fs::exists(settings()));
    EXPECT_FALSE(hookSwitch.isInstalled()) << "the state changes on the main queue only";
    EXPECT_EQ(signals, 0);

    scheduler.runUntilIdle();
    EXPECT_TRUE(hookSwitch.isInstalled());
    EXPECT_FALSE(hookSwitch.isBusy());
    EXPECT_EQ(signals, 1);

    // A question is asked off the main queue too and answered on it.
    std::optional<bool> answer;
    hookSwitch.whenKnown([&](bool installed) { answer = installed; });
    queues.runAll();
    EXPECT_FALSE(answer.has_value());
    scheduler.runUntilIdle();
    EXPECT_EQ(answer, true);
}

TEST_F(ClaudeHookSwitchTest, AFailureIsShownUntilTheNextChangeSucceeds) {
    dir.write(".claude/settings.json", "{\"a\": 1,}");
    hookSwitch.set(true);
    queues.runAll();
    scheduler.runUntilIdle();
    EXPECT_FALSE(hookSwitch.isInstalled());
    EXPECT_TRUE(hookSwitch.message().starts_with("Couldn't read")) << hookSwitch.message();

    dir.write(".claude/settings.json", "{\"a\": 1}");
    hookSwitch.set(true);
    queues.runAll();
    scheduler.runUntilIdle();
    EXPECT_TRUE(hookSwitch.isInstalled());
    EXPECT_TRUE(hookSwitch.message().empty());
}

TEST(ClaudeHookSwitchLifetime, AnAnswerThatArrivesAfterTheSwitchIsGoneIsDropped) {
    TempDir dir;
    ClaudeHooks hooks(testing::homeIn(dir.path()), MapEnvironment{});
    ManualQueueFactory queues;
    VirtualScheduler scheduler;
    int signals = 0;
    {
        ClaudeHookSwitch hookSwitch(hooks, queues, scheduler);
        auto counting = hookSwitch.changed.connect([&] { ++signals; });
        hookSwitch.refresh();
        queues.runAll();
    }
    scheduler.runUntilIdle();
    EXPECT_EQ(signals, 0);
}

}  // namespace
}  // namespace vantrelle
