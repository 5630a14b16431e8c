#include "wrapped/WrappedPeriod.h"

#include <cmath>
#include <ctime>

#include "support/LocalCalendar.h"

namespace vantrelle {
namespace {

constexpr std::array<std::string_view, 6> kNames{"lastWeek",  "thisWeek", "lastMonth",
                                                 "thisMonth", "thisYear", "allTime"};

std::tm localParts(Date date) {
    const auto seconds = static_cast<std::time_t>(std::floor(date.seconds));
    std::tm parts{};
    localtime_r(&seconds, &parts);
    return parts;
}

Date madeLocal(std::tm parts) {
    parts.tm_hour = parts.tm_min = parts.tm_sec = 0;
    parts.tm_isdst = -1;
    return Date{static_cast<double>(std::mktime(&parts))};
}

}  // namespace

std::string_view rawName(WrappedPeriod period) {
    return kNames[static_cast<std::size_t>(period)];
}

std::optional<WrappedPeriod> wrappedPeriodNamed(std::string_view name) {
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        if (kNames[i] == name) return static_cast<WrappedPeriod>(i);
    }
    return std::nullopt;
}

bool isMonthLike(WrappedPeriod period) {
    return period != WrappedPeriod::lastWeek && period != WrappedPeriod::thisWeek;
}

Date startOfMondayWeek(Date date) {
    const int sinceMonday = (localParts(date).tm_wday + 6) % 7;
    return LocalCalendar::addDays(LocalCalendar::startOfDay(date), -sinceMonday);
}

Date startOfMonth(Date date, int monthsAhead) {
    std::tm parts = localParts(date);
    parts.tm_mday = 1;
    parts.tm_mon += monthsAhead;  // mktime carries into the year
    return madeLocal(parts);
}

DateRange wrappedRange(WrappedPeriod period, Date now, std::optional<Date> earliest) {
    switch (period) {
        case WrappedPeriod::lastWeek: {
            const Date thisWeek = startOfMondayWeek(now);
            return {LocalCalendar::addDays(thisWeek, -7), thisWeek};
        }
        case WrappedPeriod::thisWeek:
            return {startOfMondayWeek(now), now};
        case WrappedPeriod::lastMonth:
            return {startOfMonth(now, -1), startOfMonth(now)};
        case WrappedPeriod::thisMonth:
            return {startOfMonth(now), now};
        case WrappedPeriod::thisYear: {
            std::tm parts = localParts(now);
            parts.tm_mon = 0;
            parts.tm_mday = 1;
            return {madeLocal(parts), now};
        }
        case WrappedPeriod::allTime:
            return {LocalCalendar::startOfDay(earliest && *earliest < now ? *earliest : now), now};
    }
    return {now, now};
}

}  // namespace vantrelle
