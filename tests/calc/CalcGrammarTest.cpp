// The calculator's grammar as tables: each row is one line typed, and a failing row names that line.
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "calc/CalcEngine.h"
#include "calc/CalcError.h"
#include "calc/CalcParser.h"

namespace vantrelle {
namespace {

CalcResult eval(std::string_view text, std::optional<double> previous = std::nullopt) {
    return CalcEngine::evaluate(text, previous, nullptr);
}

// A line and the number it comes to.
struct Value {
    const char* text;
    double value;
    std::optional<double> previous = std::nullopt;  // the answer "ans" stands for
    double tolerance = 0;                           // 0: equal to within four units in the last place
};

void expectValues(std::initializer_list<Value> rows) {
    for (const Value& row : rows) {
        SCOPED_TRACE(row.text);
        const CalcResult result = eval(row.text, row.previous);
        ASSERT_NE(result.kind, CalcResult::Kind::error) << result.display;
        ASSERT_TRUE(result.value.has_value());
        if (row.tolerance > 0) {
            EXPECT_NEAR(*result.value, row.value, row.tolerance);
        } else {
            EXPECT_DOUBLE_EQ(*result.value, row.value);
        }
    }
}

// A line, the kind of its answer and the text shown.
struct Shown {
    const char* text;
    CalcResult::Kind kind;
    const char* display;
};

void expectShown(std::initializer_list<Shown> rows) {
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
        {"5 km=>mi", "5 km in mi"},
        {"A \t\u00A0 B = =", "a b"},
        {"ÄÖ ΣΩ", "äö σω"},
        {"   ", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(CalcEngine::normalize(row.text), row.normalized);
    }
}

TEST(CalcGrammar, PrecedenceAndAssociativity) {
    expectValues({
        {"1 + 2 * 3", 7},
        {"(1 + 2) * 3", 9},
        {"10 - 4 - 3", 3},
        {"64 / 4 / 2", 8},
        {"2^3^2", 512},
        {"-2^2", 4},  // the unary sign binds tighter than "^"
        {"2^-1", 0.5},
        {"- -3", 3},
        {"+4", 4},
        {"10 % 3", 1},  // a "%" followed by a number is the remainder
        {"10 % (2 + 1)", 1},
        {"7 / 2", 3.5},
        {"1.5e3 + .5", 1500.5},
        {"2e-3 * 1E+3", 2},
    });
    expectShown({
        {"1,234 + 1", CalcResult::Kind::number, "1,235"},
        {"24*7", CalcResult::Kind::number, "168"},
        {"2×3÷4", CalcResult::Kind::number, "1.5"},
        {"12 * 3 =", CalcResult::Kind::number, "36"},
    });
    EXPECT_FALSE(eval("24*7").detail.has_value());
}

TEST(CalcGrammar, PercentMarkAndCombining) {
    const CalcResult twelve = eval("12%");
    EXPECT_EQ(twelve.kind, CalcResult::Kind::percent);
    EXPECT_EQ(twelve.display, "0.12");
    EXPECT_DOUBLE_EQ(*twelve.value, 0.12);
    EXPECT_EQ(twelve.detail, "12% as a fraction");

    expectValues({
        {"200 - 25%", 150},
        {"200 + 10%", 220},
        {"200 * 10%", 20},
        {"200 / 10%", 2000},
        {"10% + 5", 5.1},
        {"10% - 5%", 0.05},
        {"50% * 50%", 0.25},
        {"50% / 25%", 2},
        {"10%^2", 0.01},  // a marked operand of "^" counts as its fraction
        {"4^50%", 2},
        {"(50%)%", 0.005},  // a value already a percentage is divided by 100 at the next mark
        {"-5%", -0.05},
        {"(20%) * 50", 10},
        {"sqrt 25%", 0.5},  // functions take the fraction
    });
    // Combining drops the mark, and a power carries none.
    expectShown({
        {"200 + 10%", CalcResult::Kind::number, "220"},
        {"10%^2", CalcResult::Kind::number, "0.01"},
        {"(50%)", CalcResult::Kind::percent, "0.5"},
    });
}

TEST(CalcGrammar, FunctionsWorkInDegrees) {
    expectValues({
        {"sin 90", 1},
        {"sin 180", 0},
        {"cos 180", -1},
        {"sin(-90)", -1},
        {"sin(30)", 0.5, std::nullopt, 1e-15},
        {"cos 60", 0.5, std::nullopt, 1e-15},
        {"tan 45", 1, std::nullopt, 1e-15},
        {"asin 1", 90, std::nullopt, 1e-12},
        {"acos 0", 90, std::nullopt, 1e-12},
        {"atan 1", 45, std::nullopt, 1e-12},
        {"sqrt 9", 3},
        {"√16 + 1", 5},
        {"sqrt(9)^2", 9},
        {"cbrt 27", 3},
        {"cbrt -8", -2},
        {"ln e", 1},
        {"log 1000", 3},
        {"log10(100)", 2},
        {"log2 8", 3},
        {"abs -5", 5},
        {"round 2.5", 3},
        {"floor -1.5", -2},
        {"ceil 1.2", 2},
        {"exp 0", 1},
        {"2 * pi", 2 * 3.141592653589793},
    });
    expectShown({{"π", CalcResult::Kind::number, "3.141593"}});
}

TEST(CalcGrammar, PreviousAnswer) {
    expectValues({
        {"ans + 1", 42, 41},
        {"answer * 2", 8, 4},
        {"prev", 7, 7},
        {"last - 1", 6, 7},
    });
}

TEST(CalcErrors, EveryMessage) {
    const struct {
        const char* text;
        const char* message;
    } rows[] = {
        {"2 $ 3", "Unexpected '$'"},
        {"1.2.3", "Unexpected '1.2.3'"},
        {"2 3", "Unexpected '3'"},
        {"5 +", "Unexpected 'end'"},
        {"* 5", "Unexpected '*'"},
        {"2 @ 3", "Unexpected '@'"},
        {"5 ✓", "Unexpected '✓'"},
        {"foo + 1", "Unknown 'foo'"},
        {"2 * x°", "Unknown 'x°'"},
        {"ans + 1", "Unknown 'ans'"},  // no earlier answer
        {"last", "Unknown 'last'"},
        {"5 ft in kg", "Can't convert ft to kg"},
        {"3 kwh to liters", "Can't convert kwh to liters"},
        {"(1 + 2", "Unbalanced parentheses"},
        {"1 + 2)", "Unbalanced parentheses"},
        {"sqrt(4", "Unbalanced parentheses"},
        {"()", "Unbalanced parentheses"},
        {"1 / 0", "Division by zero"},
        {"5 % 0", "Division by zero"},
        {"10 / 0%", "Division by zero"},
        {"10% / 0", "Division by zero"},
        {"sqrt -1", "Not a number"},
        {"10^400", "Not a number"},
        {"tan 90", "Not a number"},
        {"1e999", "Not a number"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const CalcResult result = eval(row.text);
        EXPECT_EQ(result.kind, CalcResult::Kind::error);
        EXPECT_EQ(result.display, row.message);
        EXPECT_FALSE(result.value.has_value()) << "an error leaves no answer for the next line";
    }
    // The unit table answers only for known names, so an unknown unit reaches the user through this
    // case only when raised directly.
    EXPECT_EQ(CalcError::unknownUnit("parsec").message(), "Unknown unit 'parsec'");
}

TEST(CalcErrors, NestingTooDeepIsAGenericFailureNotACrash) {
    std::string powers;
    for (int i = 0; i < 50000; ++i) powers += "1^";
    const struct {
        const char* name;
        std::string text;
    } rows[] = {
        {"1000 parentheses", std::string(1000, '(') + "1" + std::string(1000, ')')},
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

TEST(CalcResultKind, RawNamesInOrder) {
    EXPECT_EQ(enumToRaw(CalcResult::kindRawNames, CalcResult::Kind::number), "number");
    EXPECT_EQ(enumToRaw(CalcResult::kindRawNames, CalcResult::Kind::error), "error");
    EXPECT_EQ(enumFromRaw<CalcResult::Kind>(CalcResult::kindRawNames, "currency"),
              CalcResult::Kind::currency);
}

}  // namespace
}  // namespace vantrelle
