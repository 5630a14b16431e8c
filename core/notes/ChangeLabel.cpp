#include "notes/ChangeLabel.h"

#include <array>
#include <cmath>
#include <ctime>

#include "support/LocalCalendar.h"

namespace vantrelle {

namespace {

constexpr std::array<const char*, 7> kWeekdays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::tm local(Date date) {
    const auto seconds = static_cast<std::time_t>(std::floor(date.seconds));
    std::tm parts{};
    ::localtime_r(&seconds, &parts);
    return parts;
}

std::string twoDigits(int value) {
    return std::string(1, static_cast<char>('0' + value / 10)) + static_cast<char>('0' + value % 10);
}

}  // namespace

std::string changeLabel(Date when, Date now) {
    const Date today = LocalCalendar::startOfDay(now);
    const std::tm parts = local(when);
    if (when >= today) return twoDigits(parts.tm_hour) + ":" + twoDigits(parts.tm_min);
    if (when >= LocalCalendar::addDays(today, -1)) return "Yesterday";
    if (when >= LocalCalendar::addDays(today, -6)) return kWeekdays[static_cast<std::size_t>(parts.tm_wday)];
    std::string label = std::to_string(parts.tm_mday) + " " + kMonths[static_cast<std::size_t>(parts.tm_mon)];
    if (parts.tm_year != local(now).tm_year) label += " " + std::to_string(parts.tm_year + 1900);
    return label;
}

}  // namespace vantrelle
