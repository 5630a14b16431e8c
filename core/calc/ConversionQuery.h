#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantrelle {

// The shape shared by unit and currency conversions: "<amount> <what> in|to|as <target>".
struct ConversionQuery {
    std::string source;  // the words before the connective
    std::string target;  // the words after it

    // Finds the connective from the second-last word towards the front, never at the first word, so
    // "100 km in miles" splits at the last "in" and "5 in in cm" converts inches. Needs 3 words.
    [[nodiscard]] static std::optional<ConversionQuery> split(std::string_view normalized);

    bool operator==(const ConversionQuery&) const = default;
};

// The amount at the start of a conversion's source: an optional currency symbol, a number (group
// commas allowed, then dropped) and the rest: "$1,200.50" → {"$", 1200.5, ""}, "5 km" → {"", 5, "km"}.
struct SplitAmount {
    std::string symbol;
    double amount = 0;
    std::string rest;

    [[nodiscard]] static std::optional<SplitAmount> parse(std::string_view source);

    bool operator==(const SplitAmount&) const = default;
};

}  // namespace vantrelle
