#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "calc/CalcResult.h"
#include "calc/RatesTable.h"

namespace vantrelle {

class RatesService;

// Evaluates one line of the calculator: a currency query, a unit conversion, a sentence about
// percentages or an arithmetic expression, tried in that order. Stateless; the previous answer ("ans")
// is the caller's to keep and pass in. Every failure comes back as a result of kind error.
class CalcEngine {
public:
    // A currency query found in a normalised line: "$10 in eur" → {10, "USD", "EUR"}.
    struct CurrencyQuery {
        double amount = 0;
        std::string from;
        std::string to;
        bool operator==(const CurrencyQuery&) const = default;
    };

    // Evaluates with the rates at hand; with no table, a currency query answers "Rates unavailable
    // right now". Synchronous.
    [[nodiscard]] static CalcResult evaluate(std::string_view text, std::optional<double> previous,
                                             const RatesTable* rates);

    // Evaluates as the panel does: a currency query first waits for the service to load its rates;
    // anything else completes before this returns. The completion runs on the main thread.
    static void evaluate(std::string_view text, std::optional<double> previous, RatesService& rates,
                         std::function<void(CalcResult)> completion);

    [[nodiscard]] static std::string normalize(std::string_view text);
    [[nodiscard]] static std::string format(double value, int maxFraction);

    [[nodiscard]] static std::optional<CurrencyQuery> parseCurrency(std::string_view normalized);
    // Answers a currency query from a table, or "Rates unavailable right now" without one.
    [[nodiscard]] static CalcResult currencyResult(const CurrencyQuery& query,
                                                   const std::optional<RateQuote>& quote);

    static constexpr const char* ratesUnavailableMessage = "Rates unavailable right now";
};

}  // namespace vantrelle
