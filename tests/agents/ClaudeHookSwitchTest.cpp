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
    EXPECT_FALSE(fs::exists(settings())) << "nothing is written on the calling thread";

    ASSERT_EQ(queues.runAll(), 1u);
    EXPECT_TRUE(fs::exists(settings()));
    EXPECT_FALSE(hookSwitch.isInstalled()) << "the state changes on the main queue only";

    scheduler.runUntilIdle();
    EXPECT_TRUE(hookSwitch.isInstalled());
    EXPECT_EQ(signals, 1);
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

TEST_F(ClaudeHookSwitchTest, AnAnswerThatArrivesAfterTheSwitchIsGoneIsDropped) {
    int late = 0;
    {
        ClaudeHookSwitch gone(hooks, queues, scheduler);
        auto lateCounting = gone.changed.connect([&] { ++late; });
        gone.refresh();
        queues.runAll();
    }
    scheduler.runUntilIdle();
    EXPECT_EQ(late, 0);
}

}  // namespace
}  // namespace vantrelle
