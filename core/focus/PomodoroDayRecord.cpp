#include "focus/PomodoroDayRecord.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>

#include "support/LocalCalendar.h"

namespace vantrelle::PomodoroDayRecord {

namespace {
constexpr double kSyntheticSpacing = 1800;  // a migrated count spreads its blocks half an hour apart
// More blocks than a day has minutes can only be a damaged record; it must not fill the memory.
constexpr std::int64_t kMaxBlocks = 1440;
}  // namespace

std::string dayKey(Date now) {
    const std::string padded = LocalCalendar::dayKey(now);  // "yyyy-MM-dd"
    const int year = std::stoi(padded.substr(0, 4));
    const int month = std::stoi(padded.substr(5, 2));
    const int day = std::stoi(padded.substr(8, 2));
    return fmt::format("pomodoro.completed.{}-{}-{}", year, month, day);
}

std::vector<Date> load(const DefaultsStore& defaults, Date now) {
    const std::string key = dayKey(now);
    std::vector<Date> sessions;
    if (auto instants = defaults.realArray(key + ".log")) {
        for (double seconds : *instants) sessions.push_back(Date{seconds});
        return sessions;
    }
    const std::int64_t count = std::min(defaults.integer(key).value_or(0), kMaxBlocks);
    const Date start = LocalCalendar::startOfDay(now);
    for (std::int64_t i = 1; i <= count; ++i)
        sessions.push_back(start + static_cast<double>(i) * kSyntheticSpacing);
    return sessions;
}

void save(DefaultsStore& defaults, Date now, const std::vector<Date>& sessions) {
    const std::string key = dayKey(now);
    std::vector<double> instants;
    instants.reserve(sessions.size());
    for (Date date : sessions) instants.push_back(date.seconds);
    defaults.set(key + ".log", std::move(instants));
    defaults.set(key, static_cast<std::int64_t>(sessions.size()));
}

}  // namespace vantrelle::PomodoroDayRecord
