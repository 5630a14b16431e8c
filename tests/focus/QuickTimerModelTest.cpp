#include <gtest/gtest.h>

#include "fakes/AppBasics.h"
#include "fakes/FakeOverlayPorts.h"
#include "focus/QuickTimerModel.h"

namespace vantrelle {
namespace {

class QuickTimerModelTest : public ::testing::Test, protected testing::AppBasics {
protected:
    testing::RecordingSounds sounds;
    QuickTimerModel timer{{scheduler, scheduler, settings, activities, notifications, sounds}};
    int finished = 0;
    Connection observed = notifications.observe(Notifications::timerFinished, [this] { ++finished; });
};

TEST_F(QuickTimerModelTest, RunsToItsEndThenChimesAndOpensTheNotch) {
    timer.start(180, "Tea");
    EXPECT_TRUE(activities.current()->is<LiveActivity::QuickTimer>());
    scheduler.advance(45);
    EXPECT_EQ(timer.remaining(), 135);
    EXPECT_EQ(timer.progress(), 0.25);
    scheduler.advance(135 - QuickTimerModel::kTickInterval);
    EXPECT_EQ(finished, 0);
    scheduler.advance(QuickTimerModel::kTickInterval);
    EXPECT_EQ(finished, 1);
    EXPECT_EQ(timer.status(), QuickTimerModel::Status::idle);
    EXPECT_EQ(sounds.played, std::vector<std::string>{"Glass"});
    EXPECT_FALSE(activities.current().has_value());
}

TEST_F(QuickTimerModelTest, PausedTimeDoesNotCountAndCancelIsSilent) {
    timer.start(60);
    scheduler.advance(20);
    timer.pause();
    scheduler.advance(600);
    EXPECT_EQ(timer.remaining(), 40);
    EXPECT_TRUE(activities.current().has_value());
    timer.resume();
    scheduler.advance(10);
    timer.cancel();
    scheduler.advance(600);
    EXPECT_EQ(finished, 0);
    EXPECT_TRUE(sounds.played.empty());
    EXPECT_FALSE(activities.current().has_value());
}

TEST_F(QuickTimerModelTest, SleepingPastTheEndFinishesOnceAtWake) {
    settings.setPlaySounds(false);
    timer.start(60);
    scheduler.setNow(scheduler.now() + 7200);
    scheduler.advance(1);
    EXPECT_EQ(finished, 1);
    EXPECT_TRUE(sounds.played.empty()) << "sounds off";
}

}  // namespace
}  // namespace vantrelle
