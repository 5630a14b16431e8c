#include "wrapped/WrappedPeriod.h"

#include "support/LocalCalendar.h"

namespace vantrelle {
namespace {

constexpr std::array<std::string_view, 6> kNames{"lastWeek",  "thisWeek", "lastMonth",
                                                 "thisMonth", "thisYear", "allTime"};

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

DateRange wrappedRange(WrappedPeriod period, Date now, std::optional<Date> earliest) {
    switch (period) {
        case WrappedPeriod::lastWeek: {
            const Date thisWeek = LocalCalendar::startOfMondayWeek(now);
            return {LocalCalendar::addDays(thisWeek, -7), thisWeek};
        }
        case WrappedPeriod::thisWeek:
            return {LocalCalendar::startOfMondayWeek(now), now};
        case WrappedPeriod::lastMonth:
            return {LocalCalendar::startOfMonth(now, -1), LocalCalendar::startOfMonth(now)};
        case WrappedPeriod::thisMonth:
            return {LocalCalendar::startOfMonth(now), now};
        case WrappedPeriod::thisYear:
            return {LocalCalendar::startOfYear(now), now};
        case WrappedPeriod::allTime:
            return {LocalCalendar::startOfDay(earliest && *earliest < now ? *earliest : now), now};
    }
    return {now, now};
}

}  // namespace vantrelle
