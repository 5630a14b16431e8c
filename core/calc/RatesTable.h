#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Date.h"

namespace vantrelle {

// One exchange rate between two currencies, and the day it was published ("yyyy-MM-dd").
struct RateQuote {
    double rate = 0;
    std::string asOf;
    bool operator==(const RateQuote&) const = default;
};

// A table of rates against the US dollar, as one fetch brought it.
struct RatesTable {
    std::map<std::string, double, std::less<>> rates;  // code → units per US dollar; USD is 1
    std::string date;                                  // the publication day, "yyyy-MM-dd"
    Date fetchedAt;

    // Units of `to` for one unit of `from`; nothing when either code is missing or `from` isn't above 0.
    [[nodiscard]] std::optional<RateQuote> rate(std::string_view from, std::string_view to) const;

    // A response of the rates service: an object with "rates" (code → number) and "date" (a string).
    // Anything else gives nothing. The table always gets USD = 1.
    [[nodiscard]] static std::optional<RatesTable> parse(std::string_view json, Date fetchedAt);

    // "2025-01-03" → "1/3/25", the short US style; other text comes back unchanged.
    [[nodiscard]] static std::string shortDate(std::string_view date);

    bool operator==(const RatesTable&) const = default;
};

}  // namespace vantrelle
