#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "CalcGrammarRows.h"
#include "calc/CalcEngine.h"
#include "calc/CalcParser.h"

namespace vantrelle {
namespace {

using namespace calcrows;

CalcResult eval(std::string_view text, std::optional<double> previous = std::nullopt) {
    return CalcEngine::evaluate(text, previous, nullptr);
}

template <std::size_t N>
void expectValues(const Value (&rows)[N]) {
    for (const Value& row : rows) {
        SCOPED_TRACE(row.text);
        const CalcResult result = eval(row.text, row.previous);
        ASSERT_NE(result.kind, CalcResult::Kind::error) << result.display;
        ASSERT_TRUE(result.value.has_value());
        // Degrees go through radians, so trigonometry is exact only to rounding.
        EXPECT_NEAR(*result.value, row.value, 1e-12 * std::max(1.0, std::fabs(row.value)));
    }
}

template <std::size_t N>
void expectShown(const Shown (&rows)[N]) {
    for (const Shown& row : rows) {
        SCOPED_TRACE(row.text);
        const CalcResult result = eval(row.text);
        EXPECT_EQ(result.kind, row.kind);
        EXPECT_EQ(result.display, row.display);
    }
}

TEST(CalcNormalize, ReplacesSymbolsTrimsEqualsAndCollapsesSpace) {
    const struct {
        const char* text;
        const char* normalized;
    } rows[] = {
        {"  12 × 3 ==  \n", "12 * 3"},
        {"8 ÷ 2 − 1 – 1 — 1", "8 / 2 - 1 - 1 - 1"},
        {"√9 + π", "sqrt 9 + pi"},
        {"3² + 2³", "3^2 + 2^3"},
        {"5 KM → Mi", "5 km in mi"},
        {"A \t\u00A0 B = =", "a b"},
        {"ÄÖ ΣΩ", "äö σω"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(CalcEngine::normalize(row.text), row.normalized);
    }
}

TEST(CalcGrammar, EveryTableRow) {
    expectValues(kPrecedenceValues);
    expectShown(kPrecedenceShown);
    EXPECT_EQ(eval("12%"), (CalcResult{"0.12", "12% as a fraction", 0.12, CalcResult::Kind::percent}));
    expectValues(kPercentValues);
    expectShown(kPercentShown);  // combining drops the mark, and a power carries none
    expectValues(kFunctionValues);
    expectShown(kFunctionShown);
    expectValues(kPreviousAnswerValues);
}

TEST(CalcErrors, EveryMessage) {
    for (const auto& row : kErrorRows) {
        SCOPED_TRACE(row.text);
        const CalcResult result = eval(row.text);
        EXPECT_EQ(result.kind, CalcResult::Kind::error);
        EXPECT_EQ(result.display, row.message);
        EXPECT_FALSE(result.value.has_value()) << "an error leaves no answer for the next line";
    }
}

TEST(CalcErrors, NestingTooDeepIsAGenericFailureNotACrash) {
    std::string powers;
    for (int i = 0; i < 50000; ++i) powers += "1^";
    const struct {
        const char* name;
        std::string text;
    } rows[] = {
        {"100000 open parentheses", std::string(100000, '(')},
        {"100000 signs", std::string(100000, '-') + "1"},
        {"50000 powers", powers + "1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const CalcResult result = eval(row.text);
        EXPECT_EQ(result.kind, CalcResult::Kind::error);
        EXPECT_EQ(result.display, "Couldn't work that out");
    }

    // Each parenthesis takes two levels of the guard (the power and the unary inside it).
    const std::size_t parens = CalcParser::maxDepth / 2 - 1;
    const std::string fine = std::string(parens, '(') + "1" + std::string(parens, ')');
    EXPECT_EQ(eval(fine).value, 1.0);
}

}  // namespace
}  // namespace vantrelle
