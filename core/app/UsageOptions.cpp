#include <array>
#include <filesystem>
#include <functional>

#include "agents/IsoDate.h"
#include "app/UsageReport.h"

namespace vantrelle {

namespace {

constexpr std::array<std::pair<std::string_view, UsageGrouping>, 4> kGroupings{{
    {"daily", UsageGrouping::daily},
    {"monthly", UsageGrouping::monthly},
    {"session", UsageGrouping::session},
    {"blocks", UsageGrouping::blocks},
}};

constexpr const char* kCommon =
    "  --json             the figures as JSON\n"
    "  --now <date>       the moment to report for, such as 2026-03-07T09:10:00Z\n"
    "  --home <dir>       the folder holding .claude, .codex and .gemini (default: your home)\n"
    "  --tz <zone>        days and hours in this time zone, such as Europe/Berlin (default: the system's)\n"
    "  -h, --help         this text\n";

constexpr const char* kGrouped =
    "  --since <day>      from this day on, YYYY-MM-DD\n"
    "  --until <day>      up to and including this day\n"
    "  --breakdown        a line per model under each row\n";

bool isDay(const std::string& text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return false;
    for (std::size_t i : {0, 1, 2, 3, 5, 6, 8, 9}) {
        if (text[i] < '0' || text[i] > '9') return false;
    }
    return parseIsoDate(text + "T12:00:00Z").has_value();
}

bool isZone(const std::string& zone) {
    if (zone == "UTC") return true;
    if (zone.empty() || zone.front() == '/' || zone.find("..") != std::string::npos) return false;
    std::error_code failure;
    return std::filesystem::is_regular_file(std::filesystem::path("/usr/share/zoneinfo") / zone, failure);
}

// Applies one option that takes a value; a message when the value doesn't fit.
std::optional<std::string> applyValue(const std::string& option, const std::string& value,
                                      UsageReportOptions& options) {
    if (option == "--home") {
        std::error_code failure;
        if (!std::filesystem::is_directory(value, failure)) return "--home " + value + ": no such folder";
        options.home = value;
    } else if (option == "--now") {
        options.now = parseIsoDate(value);
        if (!options.now)
            return "--now needs an ISO 8601 date-time such as 2026-03-07T09:10:00Z, not " + value;
    } else if (option == "--tz") {
        if (!isZone(value)) return "--tz " + value + ": no such time zone";
        options.timeZone = value;
    } else if (!options.grouping) {
        return option + " belongs to a report: daily, monthly, session or blocks";
    } else if (!isDay(value)) {
        return option + " needs a day such as 2026-03-07, not " + value;
    } else {
        (option == "--since" ? options.range.since : options.range.until) = value;
    }
    return std::nullopt;
}

}  // namespace

std::string usageSynopsis(std::optional<UsageGrouping> grouping) {
    if (!grouping) {
        return std::string(
                   "usage: vantrelle usage [daily|monthly|session|blocks] [options]\n"
                   "  (no report)        today, the last 7 days, the 5-hour window, the sessions\n"
                   "  daily, monthly     every log on disk by day or by month\n"
                   "  session            every log on disk by session\n"
                   "  blocks             every log on disk by 5-hour window, the open one marked\n") +
               kCommon +
               "Each report takes --since, --until and --breakdown; `vantrelle usage daily --help`.\n";
    }
    const char* what = *grouping == UsageGrouping::daily     ? "daily      tokens and cost by day"
                       : *grouping == UsageGrouping::monthly ? "monthly    tokens and cost by month"
                       : *grouping == UsageGrouping::session ? "session    tokens and cost by session"
                                                             : "blocks     tokens and cost by 5-hour window";
    const char* live = *grouping == UsageGrouping::blocks
                           ? "  --live             the open window, redrawn when the app's figures change\n"
                           : "";
    return std::string("usage: vantrelle usage ") + what + ", every log on disk\n" + kGrouped + live +
           kCommon;
}

std::optional<UsageReportOptions> parseUsageArguments(const std::vector<std::string>& arguments,
                                                      std::string& error) {
    UsageReportOptions options;
    std::size_t i = 0;
    if (!arguments.empty()) {
        for (const auto& [name, grouping] : kGroupings) {
            if (arguments[0] == name) options.grouping = grouping, i = 1;
        }
    }
    for (; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--help" || argument == "-h") {
            options.help = true;
            return options;
        }
        if (argument == "--json") {
            options.json = true;
        } else if (argument == "--breakdown" && options.grouping) {
            options.breakdown = true;
        } else if (argument == "--live" && options.grouping == UsageGrouping::blocks) {
            options.live = true;
        } else if (argument == "--now" || argument == "--home" || argument == "--tz" ||
                   argument == "--since" || argument == "--until") {
            if (i + 1 >= arguments.size()) {
                error = argument + " needs a value";
                return std::nullopt;
            }
            if (auto problem = applyValue(argument, arguments[++i], options)) {
                error = *problem;
                return std::nullopt;
            }
        } else {
            error = (argument.starts_with("-") ? "unknown option " : "unknown report ") + argument;
            return std::nullopt;
        }
    }
    return options;
}

}  // namespace vantrelle
