#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/Date.h"
#include "schedule/CalendarEvent.h"

namespace vantrelle {

// `vantrelle today`: the day's events, in the order the Today view shows them.
struct TodayOptions {
    bool help = false;
    bool json = false;
    std::vector<std::filesystem::path> calendars;  // folders to read in place of the user's
    std::optional<Date> now;
    std::optional<std::string> timeZone;  // an IANA zone name such as "Europe/Berlin"
};

[[nodiscard]] const char* todaySynopsis();

// Parses the arguments after "today"; nothing and a message in `error` if they make no sense.
[[nodiscard]] std::optional<TodayOptions> parseTodayArguments(const std::vector<std::string>& arguments,
                                                              std::string& error);

// The report over events already read and arranged for the day, in the process's time zone.
[[nodiscard]] std::string todayReport(const std::vector<CalendarEvent>& arranged, Date now, bool json);

}  // namespace vantrelle
