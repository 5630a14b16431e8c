#include <gtest/gtest.h>

#include "focus/StopwatchModel.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

// Dates near 2027 in seconds carry about a microsecond of rounding; a tick's reading may lag a tick.
constexpr double kClock = 1e-5;
constexpr double kTick = StopwatchModel::kTickInterval;

class StopwatchModelTest : public ::testing::Test {
protected:
    VirtualScheduler scheduler;
    LiveActivityCenter activities{scheduler};
    StopwatchModel watch{scheduler, scheduler, activities};
};

TEST_F(StopwatchModelTest, CountsSegmentsAgainstTheClock) {
    watch.pause();  // while stopped: nothing
    watch.start();
    scheduler.advance(10);
    EXPECT_NEAR(watch.elapsed(), 10, kTick);
    watch.start();  // a second start keeps the segment
    scheduler.advance(0.05);
    watch.pause();
    EXPECT_NEAR(watch.elapsed(), 10.05, kClock) << "pause reads the clock, not the last tick";
    scheduler.advance(100);
    watch.start();
    scheduler.advance(5.05);
    watch.pause();
    watch.pause();
    EXPECT_NEAR(watch.elapsed(), 15.1, kClock);
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
    ASSERT_EQ(watch.laps().size(), 2U);
    EXPECT_NEAR(watch.laps()[1], 8, kClock);
    watch.reset();
    EXPECT_TRUE(watch.laps().empty());
    watch.start();
    scheduler.advance(3);
    watch.lap();
    ASSERT_EQ(watch.laps().size(), 1U);
    EXPECT_NEAR(watch.laps()[0], 3, kClock) << "reset moves the lap anchor back to zero";
}

TEST_F(StopwatchModelTest, TimeAsleepCounts) {
    watch.start();
    scheduler.setNow(scheduler.now() + 3600);
    scheduler.advance(StopwatchModel::kTickInterval);
    EXPECT_GE(watch.elapsed(), 3600 - kClock);
    EXPECT_LE(watch.elapsed(), 3600.1 + kClock);
}

}  // namespace
}  // namespace vantrelle
