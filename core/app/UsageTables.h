#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "agents/AILogSnapshot.h"

namespace vantrelle {

// The reports of `vantrelle usage daily|monthly|session|blocks`: every event on record grouped by day,
// month, session or 5-hour window. Plain functions over the events of one scan.
enum class UsageGrouping { daily, monthly, session, blocks };

struct UsageTotals {
    std::int64_t input = 0, output = 0, cacheRead = 0, cacheWrite = 0;
    double cost = 0;
    std::int64_t messages = 0;
    [[nodiscard]] std::int64_t tokens() const;
    void add(const AIUsageEvent& event, double eventCost);
    bool operator==(const UsageTotals&) const = default;
};

struct UsageRow {
    std::string key;    // "2026-03-07", "2026-03", a session id, or the window's start (ISO 8601)
    std::string label;  // what the first column shows: the day, the month, the project, the window's hours
    UsageTotals totals;
    std::map<std::string, UsageTotals> models;  // the same figures per model name ("" when unnamed)
    std::optional<std::string> lastActivity;    // sessions and windows: the last event (ISO 8601)
    bool live = false;                          // blocks: the window still open
    std::int64_t projectedTokens = 0;           // the live window at its current burn rate
    double secondsLeft = 0;                     // the live window
    bool operator==(const UsageRow&) const = default;
};

// Inclusive local calendar days, "YYYY-MM-DD"; an empty bound is open.
struct UsageRange {
    std::string since;
    std::string until;
    [[nodiscard]] bool contains(const std::string& dayKey) const;
};

// Rows oldest first (sessions: by their last event), each row's models sorted by name.
[[nodiscard]] std::vector<UsageRow> usageRows(UsageGrouping grouping, const AILogSnapshot::Events& events,
                                              const AILogSnapshot::Sessions& sessions,
                                              const UsageRange& range, Date now);

struct UsageTableStyle {
    bool breakdown = false;  // a line per model under each row
    bool colour = false;     // ANSI colours: on a terminal, unless NO_COLOR is set
};

// A table that fits an 80-column terminal, with a total line.
[[nodiscard]] std::string usageTableText(UsageGrouping grouping, const std::vector<UsageRow>& rows,
                                         UsageTableStyle style);
// {"daily"|"monthly"|"sessions"|"blocks": [...], "totals": {...}}; models only with the breakdown.
[[nodiscard]] std::string usageTableJson(UsageGrouping grouping, const std::vector<UsageRow>& rows,
                                         bool breakdown);

}  // namespace vantrelle
