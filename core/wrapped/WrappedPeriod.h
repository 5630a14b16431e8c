#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "platform/Date.h"

namespace vantrelle {

// The stretches of time a recap covers. Weeks start on Monday whatever the locale says. The view shows
// the first four; the command line adds the year so far and everything since tracking began.
enum class WrappedPeriod { lastWeek, thisWeek, lastMonth, thisMonth, thisYear, allTime };

inline constexpr std::array<WrappedPeriod, 4> kWrappedViewPeriods{
    WrappedPeriod::lastWeek, WrappedPeriod::thisWeek, WrappedPeriod::lastMonth, WrappedPeriod::thisMonth};

struct DateRange {
    Date start;  // inclusive
    Date end;    // exclusive for the "last" periods, now for the others
    bool operator==(const DateRange&) const = default;
};

[[nodiscard]] std::string_view rawName(WrappedPeriod period);
[[nodiscard]] std::optional<WrappedPeriod> wrappedPeriodNamed(std::string_view name);
// Month-sized or larger: the figures and the most-focused day are phrased for a month.
[[nodiscard]] bool isMonthLike(WrappedPeriod period);
// `earliest` is where allTime starts (the start of tracking); other periods ignore it.
[[nodiscard]] DateRange wrappedRange(WrappedPeriod period, Date now,
                                     std::optional<Date> earliest = std::nullopt);

}  // namespace vantrelle
