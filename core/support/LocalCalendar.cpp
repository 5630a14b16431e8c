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

Date fromLocal(std::tm parts) {
    parts.tm_isdst = -1;
    const std::time_t made = std::mktime(&parts);
    return Date{static_cast<double>(made)};
}

}  // namespace

Date LocalCalendar::startOfDay(Date date) {
    std::tm parts = local(date);
    parts.tm_hour = parts.tm_min = parts.tm_sec = 0;
    return fromLocal(parts);
}

Date LocalCalendar::addDays(Date start, int days) {
    std::tm parts = local(start);
    parts.tm_mday += days;
    parts.tm_hour = parts.tm_min = parts.tm_sec = 0;
    return fromLocal(parts);
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
