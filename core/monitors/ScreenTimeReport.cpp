#include "monitors/ScreenTimeReport.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <nlohmann/json.hpp>

namespace vantrelle {

std::vector<std::pair<AppCategory, double>> categoryTotals(const std::vector<AppUsage>& apps) {
    std::map<AppCategory, double> sums;
    for (const AppUsage& app : apps) sums[appCategory(app.id)] += app.seconds;
    std::vector<std::pair<AppCategory, double>> out;
    for (const auto& [category, seconds] : sums) {
        if (seconds > 0) out.emplace_back(category, seconds);
    }
    std::stable_sort(out.begin(), out.end(),
                     [](const auto& a, const auto& b) { return a.second > b.second; });
    return out;
}

std::string formatDuration(double seconds) {
    const auto whole = static_cast<long long>(std::floor(std::max(0.0, seconds)));
    if (whole < 60) return fmt::format("{} s", whole);
    const long long minutes = whole / 60;
    if (minutes < 60) return fmt::format("{} m", minutes);
    return fmt::format("{} h {:02d} m", minutes / 60, minutes % 60);
}

std::string screenTimeText(const ScreenTimeDayReport& report) {
    double total = 0;
    for (const AppUsage& app : report.apps) total += app.seconds;
    std::string out = fmt::format("Screen time {}: {}\n", report.day, formatDuration(total));
    if (report.apps.empty()) return out + "Nothing recorded.\n";
    std::size_t width = 0;
    for (const AppUsage& app : report.apps) width = std::max(width, app.name.size());
    out += "\nBy app\n";
    for (const AppUsage& app : report.apps) {
        out += fmt::format("  {:<{}}  {:>9}  {}\n", app.name, width, formatDuration(app.seconds),
                           rawName(appCategory(app.id)));
    }
    out += "\nBy category\n";
    for (const auto& [category, seconds] : categoryTotals(report.apps)) {
        out += fmt::format("  {:<13}  {:>9}\n", rawName(category), formatDuration(seconds));
    }
    if (report.hasSessions) {
        out +=
            fmt::format("\nSessions: average {}, longest {}\n", formatDuration(report.averageSessionSeconds),
                        formatDuration(report.longestSessionSeconds));
    }
    return out;
}

std::string screenTimeJson(const ScreenTimeDayReport& report) {
    nlohmann::json apps = nlohmann::json::array();
    double total = 0;
    for (const AppUsage& app : report.apps) {
        total += app.seconds;
        apps.push_back({{"id", app.id},
                        {"name", app.name},
                        {"seconds", app.seconds},
                        {"category", std::string(rawName(appCategory(app.id)))}});
    }
    nlohmann::json categories = nlohmann::json::array();
    for (const auto& [category, seconds] : categoryTotals(report.apps)) {
        categories.push_back({{"category", std::string(rawName(category))}, {"seconds", seconds}});
    }
    nlohmann::json json{
        {"day", report.day}, {"totalSeconds", total}, {"apps", apps}, {"categories", categories}};
    if (report.hasSessions) {
        json["averageSessionSeconds"] = report.averageSessionSeconds;
        json["longestSessionSeconds"] = report.longestSessionSeconds;
    }
    return json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

namespace {

bool isDayKey(const std::string& text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return false;
    for (std::size_t i : {0, 1, 2, 3, 5, 6, 8, 9}) {
        if (text[i] < '0' || text[i] > '9') return false;
    }
    return true;
}

}  // namespace

CommandOutput runScreenTimeCommand(const std::vector<std::string>& arguments, const std::string& today,
                                   const std::function<std::vector<AppUsage>(const std::string&)>& readDay) {
    static const std::string synopsis = "usage: vantrelle screentime [--json] [--day YYYY-MM-DD]\n";
    bool json = false;
    std::string day = today;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--json") {
            json = true;
        } else if (argument == "--day" && i + 1 < arguments.size() && isDayKey(arguments[i + 1])) {
            day = arguments[++i];
        } else if (argument == "--help" || argument == "-h") {
            return {0, synopsis, {}};
        } else {
            return {2, {}, "vantrelle screentime: unexpected argument " + argument + "\n" + synopsis};
        }
    }
    ScreenTimeDayReport report{day, readDay(day), 0, 0, false};
    return {0, json ? screenTimeJson(report) : screenTimeText(report), {}};
}

}  // namespace vantrelle
