#pragma once

#include <optional>
#include <string>
#include <vector>

#include "wrapped/WrappedSummary.h"

namespace vantrelle {

// The recap as text for a terminal, and as JSON with every figure and phrase of the card.
[[nodiscard]] std::string wrappedText(const WrappedSummary& summary);
[[nodiscard]] std::string wrappedJson(const WrappedSummary& summary);
// "wrapped test: <period> <range> focus=… cursor=<km>km top=… ai=… headline=…", for scripted runs.
[[nodiscard]] std::string wrappedLogLine(const WrappedSummary& summary);

// `vantrelle wrapped [--period week|month|year|all] [--json] [--png FILE]`; the four view periods are
// accepted by their raw names too.
struct WrappedCommandOptions {
    WrappedPeriod period = WrappedPeriod::thisWeek;
    bool json = false;
    std::string png;  // empty for none
    bool help = false;
};
[[nodiscard]] std::optional<WrappedCommandOptions> parseWrappedArguments(
    const std::vector<std::string>& arguments, std::string& error);
inline constexpr const char* kWrappedSynopsis =
    "usage: vantrelle wrapped [--period week|month|year|all|lastWeek|lastMonth] [--json] [--png FILE]\n";

}  // namespace vantrelle
