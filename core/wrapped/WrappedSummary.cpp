#include "wrapped/WrappedSummary.h"

#include <fmt/format.h>

#include <cmath>
#include <ctime>
#include <numeric>

#include "support/LocalCalendar.h"

namespace vantrelle {
namespace {

// Locale-aware names through the C library's LC_TIME, which the shell sets from the environment.
std::string formatted(Date date, const char* pattern) {
    const auto seconds = static_cast<std::time_t>(std::floor(date.seconds));
    std::tm parts{};
    localtime_r(&seconds, &parts);
    char buffer[128];
    const std::size_t length = std::strftime(buffer, sizeof buffer, pattern, &parts);
    std::string text(buffer, length);
    // "%e" pads single digits with a blank.
    if (const auto blank = text.find("  "); blank != std::string::npos) text.erase(blank, 1);
    if (!text.empty() && text.front() == ' ') text.erase(0, 1);
    return text;
}

struct LedgerSums {
    std::int64_t focusBlocks = 0, focusMinutes = 0, meetingsJoined = 0, aiTokens = 0;
    std::vector<std::pair<Date, std::int64_t>> focusDays;
};

LedgerSums walkDays(const WrappedHistory* history, Date start, Date end) {
    LedgerSums sums;
    for (Date day = start; day < end; day = LocalCalendar::addDays(day, 1)) {
        if (!history) break;
        const auto it = history->days().find(WrappedHistory::key(day));
        if (it == history->days().end()) continue;
        const WrappedHistory::Day& figures = it->second;
        sums.focusBlocks += figures.focusBlocks;
        sums.focusMinutes += figures.focusMinutes;
        sums.meetingsJoined += figures.meetingsJoined;
        sums.aiTokens += figures.aiTokens;
        if (figures.focusMinutes > 0) sums.focusDays.emplace_back(day, figures.focusMinutes);
    }
    return sums;
}

void useDemoFigures(LedgerSums& sums, WrappedPeriod period, Date start) {
    const bool month = isMonthLike(period);
    sums.focusBlocks = month ? 64 : 17;
    sums.focusMinutes = sums.focusBlocks * 25;
    sums.meetingsJoined = month ? 23 : 6;
    sums.aiTokens = month ? 312'000'000 : 86'000'000;
    sums.focusDays = {{LocalCalendar::addDays(start, 1), 150}};
}

}  // namespace

WrappedSummary WrappedSummary::make(WrappedPeriod period, Date now, const WrappedSources& sources) {
    const std::optional<Date> since = sources.history ? sources.history->trackingSince() : std::nullopt;
    const DateRange range = wrappedRange(period, now, since);
    WrappedSummary summary;
    summary.period = period;
    summary.start = range.start;
    summary.end = range.end;
    LedgerSums sums = walkDays(sources.history, range.start, range.end);
    if (sources.demoMode) useDemoFigures(sums, period, range.start);
    summary.focusBlocks = sums.focusBlocks;
    summary.focusMinutes = sums.focusMinutes;
    summary.meetingsJoined = sums.meetingsJoined;

    // The other stores take inclusive ranges.
    const Date last = range.end > range.start ? range.end - 1.0 : range.end;
    if (sources.cursorMeters) {
        const auto metres = sources.cursorMeters(range.start, last);
        summary.cursorKm = std::accumulate(metres.begin(), metres.end(), 0.0) / 1000.0;
    }
    if (sources.appSeconds) {
        const auto apps = sources.appSeconds(range.start, last);
        if (!apps.empty() && apps.front().second / 3600.0 >= kMinTopAppHours) {
            summary.topApp = TopApp{apps.front().first, apps.front().second / 3600.0};
        }
    }
    // The ledger keeps what the logs have lost; the live figure what the ledger hasn't seen yet.
    const std::int64_t live = sources.aiTokens ? sources.aiTokens(range.start, last) : 0;
    summary.aiTokens = sources.demoMode ? sums.aiTokens : std::max(live, sums.aiTokens);
    if (summary.focusBlocks > 0) {
        std::optional<std::pair<Date, std::int64_t>> best;
        for (const auto& day : sums.focusDays) {
            if (!best || day.second > best->second) best = day;  // a tie keeps the earlier day
        }
        if (best) summary.mostFocusedDay = best->first;
    }
    if (sources.demoMode)
        summary.cursorKm = isMonthLike(period) ? 48.3 : 12.4;  // a recording shows a headline
    if (since && *since > range.start && !sources.demoMode) summary.partialSince = since;
    if (sources.topProject) {
        if (auto top = sources.topProject(range.start, last))
            summary.topProject = TopProject{top->first, top->second};
    }
    return summary;
}

std::string WrappedSummary::title() const {
    switch (period) {
        case WrappedPeriod::lastWeek:
        case WrappedPeriod::thisWeek:
            return "Your week";
        case WrappedPeriod::lastMonth:
        case WrappedPeriod::thisMonth:
            return "Your " + formatted(start, "%B");
        case WrappedPeriod::thisYear:
            return "Your " + formatted(start, "%Y");
        case WrappedPeriod::allTime:
            return "Your story so far";
    }
    return "Your recap";
}

std::string WrappedSummary::rangeText() const {
    const Date last = end > start ? end - 1.0 : end;
    return formatted(start, "%e %b") + " \u2013 " + formatted(last, "%e %b");
}

std::string WrappedSummary::focusHoursText() const {
    const double hours = static_cast<double>(focusMinutes) / 60.0;
    return hours < 10 ? fmt::format("{:.1f} h", hours) : fmt::format("{} h", std::llround(hours));
}

std::string WrappedSummary::cursorText() const {
    return cursorKm < 10 ? fmt::format("{:.1f} km", cursorKm) : fmt::format("{} km", std::llround(cursorKm));
}

std::string WrappedSummary::cursorMilestone() const {
    constexpr double kMarathon = 42.195;
    const double km = cursorKm;
    if (km >= 84.39) return fmt::format("Your cursor ran {} marathons", std::llround(km / kMarathon));
    if (km >= kMarathon) return "Your cursor ran a marathon";
    if (km >= 21.1) return "Your cursor ran a half marathon";
    if (km >= 10) return "Your cursor ran a 10K";
    if (km >= 5) return "Your cursor ran a 5K";
    if (km >= 1) return fmt::format("Your cursor travelled {:.1f} km", km);
    return fmt::format("Your cursor travelled {} m", std::llround(km * 1000));
}

std::optional<std::string> WrappedSummary::mostFocusedDayText() const {
    if (!mostFocusedDay) return std::nullopt;
    return formatted(*mostFocusedDay, isMonthLike(period) ? "%A %e %b" : "%A");
}

}  // namespace vantrelle
