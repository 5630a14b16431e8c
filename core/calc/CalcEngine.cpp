#include "calc/CalcEngine.h"

#include <array>
#include <cmath>
#include <utility>

#include "calc/CalcError.h"
#include "calc/CalcFormat.h"
#include "calc/CalcParser.h"
#include "calc/CalcText.h"
#include "calc/ConversionQuery.h"
#include "calc/CurrencyNames.h"
#include "calc/PercentPhrase.h"
#include "calc/RatesService.h"
#include "calc/UnitTable.h"

namespace vantrelle {

namespace {

constexpr int kFraction = 6;
constexpr int kMoneyFraction = 2;

// Replacements made while normalising, in this order.
constexpr std::array<std::pair<std::string_view, std::string_view>, 11> kReplacements{{
    {"×", "*"},
    {"÷", "/"},
    {"−", "-"},
    {"–", "-"},
    {"—", "-"},
    {"√", "sqrt "},
    {"π", "pi"},
    {"²", "^2"},
    {"³", "^3"},
    {"→", " in "},
    {"=>", " in "},
}};

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
    std::size_t at = 0;
    while ((at = text.find(from, at)) != std::string::npos) {
        text.replace(at, from.size(), to);
        at += to.size();
    }
}

// "5 km in mi" → 3.106856 mi.
std::optional<CalcResult> parseUnit(std::string_view normalized) {
    const auto query = ConversionQuery::split(normalized);
    if (!query) return std::nullopt;
    const auto amount = SplitAmount::parse(query->source);
    if (!amount) return std::nullopt;
    const UnitTable::Unit* from = UnitTable::unitFor(amount->rest);
    const UnitTable::Unit* to = UnitTable::unitFor(query->target);
    if (!from || !to) return std::nullopt;
    if (from->dimension != to->dimension) throw CalcError::incompatibleUnits(amount->rest, query->target);

    const double value = UnitTable::convert(amount->amount, *from, *to);
    if (!std::isfinite(value)) throw CalcError::notANumber();
    std::string detail = CalcFormat::format(amount->amount, kFraction) + " " + amount->rest + " = " +
                         CalcFormat::format(value, kFraction) + " " + query->target;
    if (from->dimension != UnitTable::Dimension::temperature) {
        detail += " · 1 " + amount->rest + " = " +
                  CalcFormat::format(UnitTable::convert(1, *from, *to), kFraction) + " " + query->target;
    }
    return CalcResult{CalcFormat::format(value, kFraction) + " " + query->target, std::move(detail), value,
                      CalcResult::Kind::unit};
}

CalcResult expressionResult(std::string_view normalized, std::optional<double> previous) {
    const CalcValue top = CalcParser::evaluate(normalized, previous);
    if (!std::isfinite(top.value)) throw CalcError::notANumber();
    if (top.isPercent) {
        const double value = top.value / 100;
        return CalcResult{CalcFormat::format(value, kFraction),
                          CalcFormat::format(top.value, kFraction) + "% as a fraction", value,
                          CalcResult::Kind::percent};
    }
    return CalcResult{CalcFormat::format(top.value, kFraction), std::nullopt, top.value,
                      CalcResult::Kind::number};
}

CalcResult errorResult(std::string message) {
    return CalcResult{std::move(message), std::nullopt, std::nullopt, CalcResult::Kind::error};
}

// Everything after the currency stage, which needs no rates.
CalcResult evaluateLocally(const std::string& normalized, std::optional<double> previous) {
    try {
        if (auto unit = parseUnit(normalized)) return *unit;
        if (auto phrase = PercentPhrase::evaluate(normalized, previous)) return *phrase;
        return expressionResult(normalized, previous);
    } catch (const CalcError& error) {
        return errorResult(error.message());
    } catch (const std::exception&) {
        return errorResult(CalcError::genericMessage);
    }
}

}  // namespace

std::string CalcEngine::normalize(std::string_view text) {
    std::string out = CalcText::lowercased(CalcText::trimmed(text));
    for (const auto& [from, to] : kReplacements) replaceAll(out, from, to);
    while (!out.empty() && out.back() == '=') {
        out.pop_back();
        out = std::string(CalcText::trimmed(out));
    }
    return CalcText::collapsedSpaces(out);
}

std::string CalcEngine::format(double value, int maxFraction) {
    return CalcFormat::format(value, maxFraction);
}

std::optional<CalcEngine::CurrencyQuery> CalcEngine::parseCurrency(std::string_view normalized) {
    const auto query = ConversionQuery::split(normalized);
    if (!query) return std::nullopt;
    auto to = CurrencyNames::currencyCode(query->target);
    if (!to) return std::nullopt;
    const auto amount = SplitAmount::parse(query->source);
    if (!amount) return std::nullopt;
    auto from = CurrencyNames::currencyCode(amount->symbol.empty() ? amount->rest : amount->symbol);
    if (!from) return std::nullopt;
    return CurrencyQuery{amount->amount, std::move(*from), std::move(*to)};
}

CalcResult CalcEngine::currencyResult(const CurrencyQuery& query, const std::optional<RateQuote>& quote) {
    if (!quote) return errorResult(ratesUnavailableMessage);
    const double value = query.amount * quote->rate;
    if (!std::isfinite(value)) return errorResult(CalcError::notANumber().message());
    std::string detail =
        "1 " + query.from + " = " + CalcFormat::format(quote->rate, kFraction) + " " + query.to;
    if (!quote->asOf.empty()) detail += " · " + RatesTable::shortDate(quote->asOf);
    return CalcResult{CalcFormat::format(value, kMoneyFraction) + " " + query.to, std::move(detail), value,
                      CalcResult::Kind::currency};
}

CalcResult CalcEngine::evaluate(std::string_view text, std::optional<double> previous,
                                const RatesTable* rates) {
    const std::string normalized = normalize(text);
    if (auto query = parseCurrency(normalized)) {
        return currencyResult(*query, rates ? rates->rate(query->from, query->to) : std::nullopt);
    }
    return evaluateLocally(normalized, previous);
}

void CalcEngine::evaluate(std::string_view text, std::optional<double> previous, RatesService& rates,
                          std::function<void(CalcResult)> completion) {
    const std::string normalized = normalize(text);
    if (auto query = parseCurrency(normalized)) {
        rates.rate(query->from, query->to,
                   [query = *query, completion = std::move(completion)](
                       const std::optional<RateQuote>& quote) { completion(currencyResult(query, quote)); });
        return;
    }
    completion(evaluateLocally(normalized, previous));
}

}  // namespace vantrelle
