#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "monitors/AppUsage.h"
#include "monitors/ServersCommand.h"

namespace vantrelle {

class ScreenTimeTracker;

// Seconds by category over `apps`, largest first, empty categories left out.
[[nodiscard]] std::vector<std::pair<AppCategory, double>> categoryTotals(const std::vector<AppUsage>& apps);
// "2 h 05 m", "12 m", "40 s": how the views and the command line say a duration.
[[nodiscard]] std::string formatDuration(double seconds);

// One day as the Screen Time view shows it: apps largest first, with totals by category.
struct ScreenTimeDayReport {
    std::string day;  // "yyyy-MM-dd"
    std::vector<AppUsage> apps;
    double averageSessionSeconds = 0;
    double longestSessionSeconds = 0;
    bool hasSessions = false;  // sessions are known only for today in a running program
};

[[nodiscard]] std::string screenTimeText(const ScreenTimeDayReport& report);
[[nodiscard]] std::string screenTimeJson(const ScreenTimeDayReport& report);

// `vantrelle screentime [--json] [--day YYYY-MM-DD]`: one day from its file (today by default).
// `today` is today's key; `readDay` gives a day's apps from its file.
[[nodiscard]] CommandOutput runScreenTimeCommand(
    const std::vector<std::string>& arguments, const std::string& today,
    const std::function<std::vector<AppUsage>(const std::string&)>& readDay);

}  // namespace vantrelle
