#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/ScopedTimeZone.h"
#include "focus/FocusFormat.h"
#include "focus/QuickTimerModel.h"
#include "focus/StopwatchModel.h"

namespace vantrelle {
namespace {

struct FormatCase {
    double seconds;
    std::string expected;
};

void expectAll(const std::vector<FormatCase>& cases, std::string (*format)(double), const char* name) {
    for (const auto& c : cases) EXPECT_EQ(format(c.seconds), c.expected) << name << "(" << c.seconds << ")";
}

TEST(FocusFormat, TimeStringRoundsUpAndNeverWrapsMinutes) {
    expectAll({{0, "00:00"},
               {0.2, "00:01"},
               {59.0, "00:59"},
               {59.001, "01:00"},
               {1500, "25:00"},
               {5400, "90:00"},
               {-3, "00:00"}},
              pomodoroTimeString, "timeString");
}

TEST(FocusFormat, QuickTimerRoundsUpBeforeChoosingTheHourForm) {
    expectAll({{0, "00:00"},
               {0.1, "00:01"},
               {59.5, "01:00"},
               {3599, "59:59"},
               {3599.2, "1:00:00"},
               {3661, "1:01:01"}},
              QuickTimerModel::format, "QuickTimerModel::format");
}

TEST(FocusFormat, StopwatchFloorsTenthsAndDropsThemAtTheHour) {
    expectAll({{0, "00:00.0"},
               {0.3, "00:00.3"},
               {59.95, "00:59.9"},
               {61.25, "01:01.2"},
               {3599.99, "59:59.9"},
               {3600, "1:00:00"},
               {3725.9, "1:02:05"}},
              StopwatchModel::format, "StopwatchModel::format");
}

TEST(FocusFormat, ClockTimeIsLocal) {
    testing::ScopedTimeZone zone("Europe/Berlin");
    EXPECT_EQ(clockTime(Date{1'800'000'000.0}), "09:00");  // 08:00 UTC in January
    EXPECT_EQ(clockTime(Date{1'800'000'059.9}), "09:00");
}

TEST(FocusFormat, ProgressIsClampedAndZeroWithoutALength) {
    EXPECT_EQ(timerProgress(1500, 1500), 0);
    EXPECT_EQ(timerProgress(375, 1500), 0.75);
    EXPECT_EQ(timerProgress(-5, 1500), 1);
    EXPECT_EQ(timerProgress(3000, 1500), 0) << "more left than planned";
    EXPECT_EQ(timerProgress(10, 0), 0);
    EXPECT_EQ(timerProgress(10, -60), 0);
}

}  // namespace
}  // namespace vantrelle
