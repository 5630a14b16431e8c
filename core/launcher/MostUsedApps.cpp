#include "launcher/MostUsedApps.h"

#include <algorithm>
#include <map>

#include "monitors/ScreenTimeDayFile.h"
#include "support/LocalCalendar.h"
#include "support/ReadFile.h"

namespace vantrelle {

std::vector<std::string> mostUsedApps(const std::filesystem::path& screenTimeFolder, Date now, int days,
                                      const std::vector<AppUsage>& today) {
    std::map<std::string, double> seconds;
    for (const AppUsage& app : today) seconds[app.id] += app.seconds;
    const Date startOfToday = LocalCalendar::startOfDay(now);
    for (int back = 1; back <= days; ++back) {
        const std::string key = LocalCalendar::dayKey(LocalCalendar::addDays(startOfToday, -back));
        const auto text = readWholeFile(screenTimeFolder / (key + ".json"));
        if (!text) continue;
        const auto day = decodeScreenTimeDay(*text);
        if (!day) continue;
        for (const auto& [id, entry] : *day) seconds[id] += entry.seconds;
    }
    std::vector<std::pair<std::string, double>> ranked(seconds.begin(), seconds.end());
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto& a, const auto& b) { return a.second > b.second; });
    std::vector<std::string> ids;
    for (auto& [id, total] : ranked) {
        if (total > 0) ids.push_back(std::move(id));
    }
    return ids;
}

}  // namespace vantrelle
