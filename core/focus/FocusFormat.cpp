#include "focus/FocusFormat.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <ctime>

namespace vantrelle {

namespace {
long long wholeSecondsUp(double seconds) {
    return static_cast<long long>(std::ceil(std::max(0.0, seconds)));
}
}  // namespace

std::string pomodoroTimeString(double remaining) {
    const long long total = wholeSecondsUp(remaining);
    return fmt::format("{:02}:{:02}", total / 60, total % 60);
}

std::string quickTimerString(double seconds) {
    const long long total = wholeSecondsUp(seconds);
    if (total >= 3600) return fmt::format("{}:{:02}:{:02}", total / 3600, total / 60 % 60, total % 60);
    return fmt::format("{:02}:{:02}", total / 60, total % 60);
}

std::string stopwatchString(double seconds) {
    const double clamped = std::max(0.0, seconds);
    if (clamped >= 3600) {
        const auto total = static_cast<long long>(clamped);
        return fmt::format("{}:{:02}:{:02}", total / 3600, total / 60 % 60, total % 60);
    }
    // Tenths are counted in integers, so 59.95 s can't round up into the next second.
    const auto tenths = static_cast<long long>(std::floor(clamped * 10 + 1e-9));
    return fmt::format("{:02}:{:02}.{}", tenths / 600, tenths / 10 % 60, tenths % 10);
}

std::string clockTime(Date date) {
    const auto seconds = static_cast<std::time_t>(std::floor(date.seconds));
    std::tm local{};
    if (!localtime_r(&seconds, &local)) return "--:--";
    return fmt::format("{:02}:{:02}", local.tm_hour, local.tm_min);
}

double timerProgress(double remaining, double total) {
    if (!(total > 0)) return 0;
    return std::clamp(1 - remaining / total, 0.0, 1.0);
}

}  // namespace vantrelle
