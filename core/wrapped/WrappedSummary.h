#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "wrapped/WrappedHistory.h"
#include "wrapped/WrappedPeriod.h"

namespace vantrelle {

// Where a recap's figures come from. The ledger is read directly; the other stores are asked for an
// inclusive range of dates. A missing function counts as "nothing recorded".
struct WrappedSources {
    const WrappedHistory* history = nullptr;
    std::function<std::vector<double>(Date, Date)> cursorMeters;                        // metres per day
    std::function<std::vector<std::pair<std::string, double>>(Date, Date)> appSeconds;  // largest first
    std::function<std::int64_t(Date, Date)> aiTokens;
    std::function<std::optional<std::pair<std::string, std::int64_t>>(Date, Date)> topProject;
    bool demoMode = false;
};

// One immutable recap of a period: the figures and the words the card prints.
struct WrappedSummary {
    struct TopApp {
        std::string name;
        double hours = 0;
        bool operator==(const TopApp&) const = default;
    };
    struct TopProject {
        std::string name;
        std::int64_t tokens = 0;
        bool operator==(const TopProject&) const = default;
    };

    WrappedPeriod period = WrappedPeriod::thisWeek;
    Date start;
    Date end;
    std::int64_t focusBlocks = 0;
    std::int64_t focusMinutes = 0;
    std::int64_t meetingsJoined = 0;
    std::int64_t aiTokens = 0;
    double cursorKm = 0;
    std::optional<TopApp> topApp;
    std::optional<TopProject> topProject;
    std::optional<Date> mostFocusedDay;
    std::optional<Date> partialSince;

    static constexpr double kMinTopAppHours = 0.05;  // three minutes

    [[nodiscard]] static WrappedSummary make(WrappedPeriod period, Date now, const WrappedSources& sources);

    [[nodiscard]] std::string title() const;
    [[nodiscard]] std::string rangeText() const;
    [[nodiscard]] std::string focusHoursText() const;
    [[nodiscard]] std::string cursorText() const;
    [[nodiscard]] std::string cursorMilestone() const;
    // The most focused day, formatted: the weekday for a week, weekday, day and month otherwise.
    [[nodiscard]] std::optional<std::string> mostFocusedDayText() const;
};

}  // namespace vantrelle
