#pragma once

#include <string>

#include "platform/Date.h"

namespace vantrelle {

// The focus timer's digits: rounded up to whole seconds, "%02d:%02d" with minutes not wrapped at 60, so
// 90 minutes print as "90:00" and 0.2 s left still shows "00:01".
[[nodiscard]] std::string pomodoroTimeString(double remaining);
// A quick timer's digits: rounded up first, "%02d:%02d" below an hour, "%d:%02d:%02d" from an hour on.
[[nodiscard]] std::string quickTimerString(double seconds);
// A stopwatch: "%02d:%02d.%d" with tenths floored below an hour, "%d:%02d:%02d" truncated from an hour on.
[[nodiscard]] std::string stopwatchString(double seconds);
// "HH:mm" of the local clock, for the list of today's blocks.
[[nodiscard]] std::string clockTime(Date date);
// 1 - remaining/total clamped to 0...1; 0 when total is not above 0.
[[nodiscard]] double timerProgress(double remaining, double total);

}  // namespace vantrelle
