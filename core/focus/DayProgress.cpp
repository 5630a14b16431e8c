#include "focus/DayProgress.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "support/LocalCalendar.h"

namespace vantrelle {
namespace {

constexpr std::int64_t kMinutesPerDay = std::int64_t{24} * 60;

DayProgress running(Date now, Date start, Date end) {
    const double length = end - start;
    const double fraction = length > 0 ? std::clamp((now - start) / length, 0.0, 1.0) : 1.0;
    return {WorkdayPhase::during, start, end, fraction, std::max(0.0, end - now)};
}

std::string minutesText(double seconds) {
    const auto minutes = static_cast<std::int64_t>(std::ceil(std::max(0.0, seconds) / 60.0 - 1e-9));
    if (minutes < 60) return fmt::format("{} min", minutes);
    if (minutes % 60 == 0) return fmt::format("{} h", minutes / 60);
    return fmt::format("{} h {} min", minutes / 60, minutes % 60);
}

}  // namespace

DayProgress dayProgressAt(Date now, std::int64_t startMinutes, std::int64_t endMinutes) {
    // A start at 24:00 is the next midnight, which starts the day as 00:00 does; an end at 24:00 is kept,
    // so 00:00 to 24:00 is the whole day.
    startMinutes = std::clamp<std::int64_t>(startMinutes, 0, kMinutesPerDay) % kMinutesPerDay;
    endMinutes = std::clamp<std::int64_t>(endMinutes, 0, kMinutesPerDay);
    if (startMinutes == endMinutes) return {};
    const Date today = LocalCalendar::startOfDay(now);
    const Date start = LocalCalendar::atMinutes(today, startMinutes);
    const Date end = LocalCalendar::atMinutes(today, endMinutes);
    if (startMinutes < endMinutes) {
        if (now < start) return {WorkdayPhase::before, start, end, 0, start - now};
        if (now < end) return running(now, start, end);
        return {WorkdayPhase::after, start, end, 1, 0};
    }
    // Over midnight: the shift that began yesterday, the one that begins today, or the gap between.
    if (now < end)
        return running(now, LocalCalendar::atMinutes(LocalCalendar::addDays(today, -1), startMinutes), end);
    const Date nextEnd = LocalCalendar::atMinutes(LocalCalendar::addDays(today, 1), endMinutes);
    if (now >= start) return running(now, start, nextEnd);
    return {WorkdayPhase::before, start, nextEnd, 0, start - now};
}

std::string dayProgressHeadline(const DayProgress& progress) {
    switch (progress.phase) {
        case WorkdayPhase::unset:
            return "No workday set";
        case WorkdayPhase::before:
            return "Starts in " + minutesText(progress.secondsLeft);
        case WorkdayPhase::during:
            return minutesText(progress.secondsLeft) + " left";
        case WorkdayPhase::after:
            return "Workday over";
    }
    return {};
}

std::string workdayHoursText(const DayProgress& progress) {
    if (progress.phase == WorkdayPhase::unset) return {};
    return LocalCalendar::timeOfDay(progress.start) + " \u2013 " + LocalCalendar::timeOfDay(progress.end);
}

std::string dayProgressPercent(const DayProgress& progress) {
    const double fraction = std::isfinite(progress.fraction) ? std::clamp(progress.fraction, 0.0, 1.0) : 0.0;
    return fmt::format("{}%", static_cast<int>(std::floor(fraction * 100.0 + 1e-9)));
}

}  // namespace vantrelle
