#include "wrapped/WrappedReport.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

namespace vantrelle {
namespace {

std::string topAppText(const WrappedSummary& s) {
    return s.topApp ? fmt::format("{} ({:.1f} h)", s.topApp->name, s.topApp->hours) : std::string("none");
}

std::optional<WrappedPeriod> periodFromWord(const std::string& word) {
    if (word == "week") return WrappedPeriod::thisWeek;
    if (word == "month") return WrappedPeriod::thisMonth;
    if (word == "year") return WrappedPeriod::thisYear;
    if (word == "all") return WrappedPeriod::allTime;
    return wrappedPeriodNamed(word);
}

}  // namespace

std::string wrappedText(const WrappedSummary& s) {
    std::string out = fmt::format("{}  ({})\n\n", s.title(), s.rangeText());
    out += fmt::format("  Focus         {} in {} blocks\n", s.focusHoursText(), s.focusBlocks);
    out += fmt::format("  Meetings      {}\n", s.meetingsJoined);
    out += fmt::format("  Agent tokens  {}\n", s.aiTokens);
    out += fmt::format("  Cursor        {}\n", s.cursorText());
    out += fmt::format("  Top app       {}\n", topAppText(s));
    if (s.topProject)
        out += fmt::format("  Top project   {} ({} tokens)\n", s.topProject->name, s.topProject->tokens);
    if (auto day = s.mostFocusedDayText()) out += fmt::format("  Best day      {}\n", *day);
    out += "\n" + s.cursorMilestone() + "\n";
    if (s.partialSince) out += "Figures are complete only from the day tracking began.\n";
    return out;
}

std::string wrappedJson(const WrappedSummary& s) {
    nlohmann::json json{
        {"period", std::string(rawName(s.period))},
        {"start", s.start.seconds},
        {"end", s.end.seconds},
        {"title", s.title()},
        {"rangeText", s.rangeText()},
        {"focusBlocks", s.focusBlocks},
        {"focusMinutes", s.focusMinutes},
        {"focusHoursText", s.focusHoursText()},
        {"meetingsJoined", s.meetingsJoined},
        {"aiTokens", s.aiTokens},
        {"cursorKm", s.cursorKm},
        {"cursorText", s.cursorText()},
        {"cursorMilestone", s.cursorMilestone()},
        {"topApp",
         s.topApp ? nlohmann::json{{"name", s.topApp->name}, {"hours", s.topApp->hours}} : nlohmann::json()},
        {"topProject", s.topProject
                           ? nlohmann::json{{"name", s.topProject->name}, {"tokens", s.topProject->tokens}}
                           : nlohmann::json()},
        {"mostFocusedDay",
         s.mostFocusedDayText() ? nlohmann::json(*s.mostFocusedDayText()) : nlohmann::json()},
        {"partialSince", s.partialSince ? nlohmann::json(s.partialSince->seconds) : nlohmann::json()},
    };
    return json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

std::string wrappedLogLine(const WrappedSummary& s) {
    return fmt::format("wrapped test: {} {} focus={} cursor={:.1f}km top={} ai={} headline={}",
                       rawName(s.period), s.rangeText(), s.focusHoursText(), s.cursorKm, topAppText(s),
                       s.aiTokens, s.cursorMilestone());
}

std::optional<WrappedCommandOptions> parseWrappedArguments(const std::vector<std::string>& arguments,
                                                           std::string& error) {
    WrappedCommandOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const bool hasValue = i + 1 < arguments.size();
        if (argument == "--json") {
            options.json = true;
        } else if (argument == "--help" || argument == "-h") {
            options.help = true;
        } else if (argument == "--period" && hasValue) {
            const auto period = periodFromWord(arguments[++i]);
            if (!period) {
                error = "unknown period " + arguments[i];
                return std::nullopt;
            }
            options.period = *period;
        } else if (argument == "--png" && hasValue) {
            options.png = arguments[++i];
        } else {
            error = "unexpected argument " + argument;
            return std::nullopt;
        }
    }
    return options;
}

}  // namespace vantrelle
