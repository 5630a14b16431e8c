#include <gtest/gtest.h>

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
    EXPECT_EQ(timerProgress(375, 1500), 0.75);
    EXPECT_EQ(timerProgress(-5, 1500), 1);
    EXPECT_EQ(timerProgress(3000, 1500), 0) << "more left than planned";
    EXPECT_EQ(timerProgress(10, 0), 0);
}

}  // namespace
}  // namespace vantrelle
