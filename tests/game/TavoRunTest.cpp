#include <gtest/gtest.h>

#include "game/TavoRun.h"
#include "platform/VirtualScheduler.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle {
namespace {

struct TavoRunTest : ::testing::Test {
    // Plays on, step by step, jumping as the next obstacle comes near, until `seconds` pass or the run
    // ends.
    void playWell(TavoRun& game, double seconds) {
        for (double t = 0; t < seconds && game.isPlaying(); t += TavoRun::kStep) {
            for (const auto& o : game.obstacles()) {
                const double ahead = o.x - (TavoRun::kRunnerX + TavoRun::kRunnerWidth);
                if (ahead > 0 && ahead < game.speed() * 0.12) game.jump();
            }
            scheduler.advance(TavoRun::kStep);
        }
    }
    // Runs without jumping until the first crash.
    void crash(TavoRun& game) {
        for (int i = 0; i < 60 * 30 && game.isPlaying(); ++i) scheduler.advance(TavoRun::kStep);
    }

    VirtualScheduler scheduler;
    MemoryDefaultsStore defaults;
    NotificationCenter notifications;
};

TEST_F(TavoRunTest, ACrashEndsTheRunAndKeepsTheBestAcrossRestarts) {
    std::int64_t first = 0;
    {
        TavoRun game(scheduler, defaults, notifications);
        game.jump();
        crash(game);
        first = game.score();
        EXPECT_EQ(game.best(), first);
        scheduler.advance(2);
        EXPECT_EQ(game.score(), first);  // time stands still after the crash
    }
    TavoRun game(scheduler, defaults, notifications, 7);
    EXPECT_EQ(game.best(), first);
    game.jump();  // a new run from over
    EXPECT_EQ(game.score(), 0);
    playWell(game, 40);
    EXPECT_TRUE(game.isPlaying()) << "a well-timed player survives; score " << game.score();
    crash(game);
    EXPECT_GT(game.best(), first);
    EXPECT_EQ(defaults.integer(TavoRun::bestKey), game.best());
}

TEST_F(TavoRunTest, StoredBestThatIsNotANumberOrNegativeReadsAsZero) {
    for (DefaultsValue value : {DefaultsValue(std::string("lots")), DefaultsValue(std::int64_t{-5})}) {
        defaults.set(TavoRun::bestKey, value);
        EXPECT_EQ(TavoRun(scheduler, defaults, notifications).best(), 0);
    }
}

TEST_F(TavoRunTest, AnAgentAlertPausesTheGameAndAsksThePanelToStepAside) {
    TavoRun game(scheduler, defaults, notifications);
    std::vector<std::string> asides;
    auto seen = notifications.observeMessage(Notifications::tavoRunStepAside,
                                             [&](const std::string& message) { asides.push_back(message); });
    game.jump();
    scheduler.advance(1);
    notifications.post(Notifications::claudeNeedsUser, "Claude needs your approval");
    EXPECT_EQ(game.phase(), TavoRunPhase::paused);
    EXPECT_EQ(game.stepAsideMessage(), "Claude needs your approval");
    const auto score = game.score();
    scheduler.advance(5);
    EXPECT_EQ(game.score(), score);
    game.jump();  // resumes without jumping
    EXPECT_EQ(game.phase(), TavoRunPhase::playing);
    EXPECT_TRUE(game.stepAsideMessage().empty());
    scheduler.advance(0.1);
    EXPECT_GT(game.score(), score);
    // Ready or over: nothing to pause, but the panel is still asked.
    TavoRun idle(scheduler, defaults, notifications);
    notifications.post(Notifications::claudeNeedsUser, "Claude finished in shop");
    EXPECT_EQ(idle.phase(), TavoRunPhase::ready);
    EXPECT_EQ(asides.size(), 3U);  // one per game for the second alert
}

}  // namespace
}  // namespace vantrelle
