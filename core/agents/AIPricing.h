#pragma once

#include <optional>
#include <string_view>

#include "agents/AIUsageEvent.h"

namespace vantrelle {

// The built-in price list, US dollars per 1,000,000 tokens.
struct AIPricing {
    struct LongContext {
        double input = 0;
        double output = 0;
        double cacheRead = 0;
        bool operator==(const LongContext&) const = default;
    };

    double input = 0;
    double output = 0;
    double cacheRead = 0;
    double cacheWrite = 0;
    std::optional<LongContext> longContext;  // the raised prices of a call over 200,000 input tokens

    bool operator==(const AIPricing&) const = default;

    // The first row whose needle is in the lowercased model name decides; no match is the fallback.
    [[nodiscard]] static AIPricing rates(std::string_view model);
    [[nodiscard]] static std::string_view family(std::string_view model);
    // The estimated cost of one event in dollars; the long-context rule applies to each event alone.
    [[nodiscard]] static double cost(const AIUsageEvent& event);
    // The same with the rates already looked up, for callers that keep them per model.
    [[nodiscard]] double costOf(const AIUsageEvent& event) const;
};

}  // namespace vantrelle
