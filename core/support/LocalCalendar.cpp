#include "support/LocalCalendar.h"

#include <fmt/format.h>

#include <cmath>
#include <ctime>

namespace vantrelle {

namespace {

std::tm local(Date date) {
    const auto seconds = static_cast<std::time_t>(std::floor(date.seconds));
    std::tm parts{};
    localtime_r(&seconds, &parts);
    return parts;
}

// mktime normalises out-of-range fields, so callers add days, months or minutes field-wise. A time it
// cannot represent falls back to `otherwise`.
Date fromLocal(std::tm parts, Date otherwise) {
    parts.tm_isdst = -1;
    const std::time_t made = std::mktime(&parts);
    return made == static_cast<std::time_t>(-1) ? otherwise : Date{static_cast<double>(made)};
}

Date midnightOf(std::tm parts, Date otherwise) {
    parts.tm_hour = parts.tm_min = parts.tm_sec = 0;
    return fromLocal(parts, otherwise);
}

}  // namespace

Date LocalCalendar::startOfDay(Date date) {
    return midnightOf(local(date), date);
}

Date LocalCalendar::addDays(Date start, int days) {
    std::tm parts = local(start);
    parts.tm_mday += days;
    return midnightOf(parts, start + days * 86400.0);
}

Date LocalCalendar::atMinutes(Date day, std::int64_t minutes) {
    std::tm parts = local(day);
    parts.tm_hour = parts.tm_sec = 0;
    parts.tm_min = static_cast<int>(minutes);
    return fromLocal(parts, day + static_cast<double>(minutes) * 60.0);
}

Date LocalCalendar::startOfMondayWeek(Date date) {
    const int sinceMonday = (local(date).tm_wday + 6) % 7;
    return addDays(startOfDay(date), -sinceMonday);
}

Date LocalCalendar::startOfMonth(Date date, int monthsAhead) {
    std::tm parts = local(date);
    parts.tm_mday = 1;
    parts.tm_mon += monthsAhead;
    return midnightOf(parts, date);
}

Date LocalCalendar::startOfYear(Date date) {
    std::tm parts = local(date);
    parts.tm_mon = 0;
    parts.tm_mday = 1;
    return midnightOf(parts, date);
}

Date LocalCalendar::startOfHour(Date date) {
    std::tm parts = local(date);
    parts.tm_min = parts.tm_sec = 0;
    std::tm copy = parts;
    copy.tm_isdst = parts.tm_isdst;
    const std::time_t made = std::mktime(&copy);
    if (made == static_cast<std::time_t>(-1)) return date;
    return Date{static_cast<double>(made)};
}

std::string LocalCalendar::dayKey(Date date) {
    const std::tm parts = local(date);
    return fmt::format("{:04d}-{:02d}-{:02d}", parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday);
}

std::string LocalCalendar::timeOfDay(Date date) {
    const std::tm parts = local(date);
    return fmt::format("{:02d}:{:02d}", parts.tm_hour, parts.tm_min);
}

}  // namespace vantrelle
