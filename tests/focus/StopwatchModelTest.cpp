#include <gtest/gtest.h>

#include "focus/StopwatchModel.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

class StopwatchModelTest : public ::testing::Test {
protected:
    VirtualScheduler scheduler;
    LiveActivityCenter activities{scheduler};
    StopwatchModel watch{scheduler, scheduler, activities};
};

TEST_F(StopwatchModelTest, CountsSegmentsAgainstTheClock) {
    watch.start();
    scheduler.advance(10);
    EXPECT_DOUBLE_EQ(watch.elapsed(), 10);
    scheduler.advance(0.05);
    watch.pause();
    EXPECT_DOUBLE_EQ(watch.elapsed(), 10.05) << "pause reads the clock, not the last tick";
    scheduler.advance(100);
    watch.start();
    scheduler.advance(5);
    EXPECT_NEAR(watch.elapsed(), 15.05, 1e-9);
}

TEST_F(StopwatchModelTest, ASecondStartKeepsTheSegmentAndPauseWhileStoppedDoesNothing) {
    watch.pause();
    EXPECT_EQ(watch.elapsed(), 0);
    watch.start();
    scheduler.advance(3);
    watch.start();
    scheduler.advance(2);
    EXPECT_DOUBLE_EQ(watch.elapsed(), 5);
    watch.pause();
    watch.pause();
    EXPECT_DOUBLE_EQ(watch.elapsed(), 5);
}

TEST_F(StopwatchModelTest, APausedStopwatchStaysInTheNotchUntilReset) {
    EXPECT_FALSE(activities.current().has_value());
    watch.start();
    EXPECT_TRUE(activities.current()->is<LiveActivity::Stopwatch>());
    scheduler.advance(1);
    watch.pause();
    EXPECT_TRUE(activities.current().has_value());
    watch.reset();
    EXPECT_FALSE(activities.current().has_value());
    EXPECT_EQ(watch.elapsed(), 0);
    scheduler.advance(10);
    EXPECT_EQ(watch.elapsed(), 0) << "no timer left running";
}

TEST_F(StopwatchModelTest, LapsRecordTheTimeSinceThePreviousLap) {
    watch.lap();
    EXPECT_TRUE(watch.laps().empty()) << "no lap while stopped";
    watch.start();
    scheduler.advance(12);
    watch.lap();
    scheduler.advance(8);
    watch.lap();
    EXPECT_EQ(watch.laps(), (std::vector<double>{12, 8}));
    watch.reset();
    EXPECT_TRUE(watch.laps().empty());
    watch.start();
    scheduler.advance(3);
    watch.lap();
    EXPECT_EQ(watch.laps(), std::vector<double>{3}) << "reset moves the lap anchor back to zero";
}

TEST_F(StopwatchModelTest, TimeAsleepCounts) {
    watch.start();
    scheduler.setNow(scheduler.now() + 3600);
    scheduler.advance(StopwatchModel::kTickInterval);
    EXPECT_NEAR(watch.elapsed(), 3600.1, 1e-6);
    EXPECT_EQ(StopwatchModel::format(watch.elapsed()), "1:00:00");
}

}  // namespace
}  // namespace vantrelle
