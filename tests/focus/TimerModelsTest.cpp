#include <gtest/gtest.h>

#include "fakes/AppBasics.h"
#include "fakes/FakeOverlayPorts.h"
#include "fakes/ScopedTimeZone.h"
#include "focus/FocusFormat.h"
#include "focus/QuickTimerModel.h"
#include "focus/StopwatchModel.h"

namespace vantrelle {
namespace {

// Timers count down and round up; the stopwatch counts up and floors its tenths, which go at the hour.
TEST(FocusFormat, TimersRoundUpAndTheStopwatchFloors) {
    const struct {
        double seconds;
        const char* pomodoro;
        const char* quickTimer;
        const char* stopwatch;
    } rows[] = {
        {-3, "00:00", "00:00", "00:00.0"},       {0.2, "00:01", "00:01", "00:00.2"},
        {59.95, "01:00", "01:00", "00:59.9"},    {3599.2, "60:00", "1:00:00", "59:59.2"},
        {3725.9, "62:06", "1:02:06", "1:02:05"}, {5400, "90:00", "1:30:00", "1:30:00"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.seconds);
        EXPECT_EQ(pomodoroTimeString(row.seconds), row.pomodoro);
        EXPECT_EQ(QuickTimerModel::format(row.seconds), row.quickTimer);
        EXPECT_EQ(StopwatchModel::format(row.seconds), row.stopwatch);
    }
}

TEST(FocusFormat, ClockTimeIsLocal) {
    testing::ScopedTimeZone zone("Europe/Berlin");
    EXPECT_EQ(clockTime(Date{1'800'000'059.9}), "09:00");  // 08:00 UTC in January
}

TEST(FocusFormat, ProgressIsClampedAndZeroWithoutALength) {
    EXPECT_EQ(timerProgress(-5, 1500), 1);
    EXPECT_EQ(timerProgress(3000, 1500), 0) << "more left than planned";
    EXPECT_EQ(timerProgress(10, 0), 0);
}

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
    EXPECT_EQ(timer.progress(), 0.25);
    scheduler.advance(135 - QuickTimerModel::kTickInterval);
    EXPECT_EQ(finished, 0);
    scheduler.advance(QuickTimerModel::kTickInterval);
    EXPECT_EQ(finished, 1);
    EXPECT_EQ(sounds.played, std::vector<std::string>{"Glass"});
    EXPECT_FALSE(activities.current().has_value());
}

TEST_F(QuickTimerModelTest, PausedTimeDoesNotCountCancelIsSilentAndSleepingPastTheEndFinishesOnce) {
    timer.start(60);
    scheduler.advance(20);
    timer.pause();
    scheduler.advance(600);
    EXPECT_EQ(timer.remaining(), 40);
    timer.resume();
    scheduler.advance(10);
    timer.cancel();
    scheduler.advance(600);
    EXPECT_EQ(finished, 0);
    EXPECT_FALSE(activities.current().has_value());

    settings.setPlaySounds(false);
    timer.start(60);
    scheduler.setNow(scheduler.now() + 7200);
    scheduler.advance(1);
    EXPECT_EQ(finished, 1);
    EXPECT_TRUE(sounds.played.empty()) << "sounds off";
}

// Dates near 2027 in seconds carry about a microsecond of rounding; a tick's reading may lag a tick.
constexpr double kClock = 1e-5;
constexpr double kTick = StopwatchModel::kTickInterval;

class StopwatchModelTest : public ::testing::Test, protected testing::AppBasics {
protected:
    StopwatchModel watch{scheduler, scheduler, activities};
};

TEST_F(StopwatchModelTest, CountsSegmentsAgainstTheClockAndStaysInTheNotchUntilReset) {
    watch.pause();  // while stopped: nothing
    watch.start();
    EXPECT_TRUE(activities.current()->is<LiveActivity::Stopwatch>());
    scheduler.advance(10);
    EXPECT_NEAR(watch.elapsed(), 10, kTick);
    watch.start();  // a second start keeps the segment
    scheduler.advance(0.05);
    watch.pause();
    EXPECT_NEAR(watch.elapsed(), 10.05, kClock) << "pause reads the clock, not the last tick";
    scheduler.advance(100);
    EXPECT_TRUE(activities.current().has_value()) << "paused, it stays in the notch";
    watch.start();
    scheduler.advance(5.05);
    watch.pause();
    watch.pause();
    EXPECT_NEAR(watch.elapsed(), 15.1, kClock);
    watch.reset();
    EXPECT_FALSE(activities.current().has_value());
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
}

TEST_F(StopwatchModelTest, TimeAsleepCounts) {
    watch.start();
    scheduler.setNow(scheduler.now() + 3600);
    scheduler.advance(kTick);
    EXPECT_NEAR(watch.elapsed(), 3600.05, 0.05 + kClock);
}

}  // namespace
}  // namespace vantrelle
