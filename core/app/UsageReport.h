#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "agents/LogProblems.h"
#include "agents/UsageSummary.h"
#include "app/UsageTables.h"
#include "platform/Date.h"
#include "platform/Environment.h"
#include "platform/ProcessTable.h"

namespace vantrelle {

// `vantrelle usage [daily|monthly|session|blocks]`: one scan and the panel's figures, or every log on
// disk grouped by day, month, session or 5-hour window; printed as text or JSON.
struct UsageReportOptions {
    bool help = false;  // --help or -h: print usageSynopsis() and nothing else
    bool json = false;
    std::optional<UsageGrouping> grouping;      // none: the panel's summary
    UsageRange range;                           // --since, --until
    bool breakdown = false;                     // --breakdown: per model
    bool live = false;                          // blocks --live: the open window, redrawn as it changes
    bool colour = false;                        // the caller's to decide: a terminal without NO_COLOR
    std::optional<std::string> timeZone;        // --tz: the days and hours of this zone
    std::optional<Date> now;                    // the clock; the wall clock if not given
    std::optional<std::filesystem::path> home;  // where the agents' logs are; else as the app finds them
};

// The synopsis and options, for --help and after an error; a grouping's own with one.
[[nodiscard]] std::string usageSynopsis(std::optional<UsageGrouping> grouping = std::nullopt);

// Parses the arguments after "usage"; nothing and a message in `error` if they don't make sense,
// among them a --home that names no folder or a --tz that names no zone.
[[nodiscard]] std::optional<UsageReportOptions> parseUsageArguments(const std::vector<std::string>& arguments,
                                                                    std::string& error);

// What one run of the report found: the panel's figures at `now`, every day on record, what was skipped.
struct UsageReportData {
    Date now;
    UsageSummary summary;
    std::map<std::string, UsageDay> daily;
    LogProblems problems;
    std::vector<UsageRow> rows;  // the grouped report's, when one was asked for
};

// One scan of the agents' logs and the figures the panel would show. The user's home comes from
// `environment` ("HOME") unless the options name one. Without a process table no agent counts as
// running, and every session reads as done.
[[nodiscard]] UsageReportData collectUsage(const UsageReportOptions& options, const Environment& environment,
                                           ProcessTable* running = nullptr);

[[nodiscard]] std::string usageJson(const UsageReportData& data);
[[nodiscard]] std::string usageText(const UsageReportData& data);

// The report. The user's home comes from `environment` ("HOME") unless the options name one. Without a
// process table no agent counts as running, and every session reads as done.
[[nodiscard]] std::string usageReport(const UsageReportOptions& options, const Environment& environment,
                                      ProcessTable* running = nullptr);

}  // namespace vantrelle
