// The calculator's grammar as tables, each row one line typed. The grammar tests check the engine
// against them; the command-line test checks that `vantrelle calc` answers every line as the engine does.
#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "calc/CalcResult.h"

namespace vantrelle {

// So a failing comparison of whole results reads as text.
inline void PrintTo(const CalcResult& result, std::ostream* out) {
    *out << "{" << result.display << " | " << result.detail.value_or("-") << " | "
         << (result.value ? std::to_string(*result.value) : "-") << " | "
         << enumToRaw(CalcResult::kindRawNames, result.kind) << "}";
}

}  // namespace vantrelle

namespace vantrelle::calcrows {

// A line and the number it comes to.
struct Value {
    const char* text;
    double value;
    std::optional<double> previous = std::nullopt;  // the answer "ans" stands for
};

// A line, the kind of its answer and the text shown.
struct Shown {
    const char* text;
    CalcResult::Kind kind;
    const char* display;
};

// A line the engine refuses, and the message shown.
struct Refused {
    const char* text;
    const char* message;
};

// "-2^2" is 4: the unary sign binds tighter than "^". A "%" followed by a number is the remainder.
inline const Value kPrecedenceValues[] = {{"1 + 2 * 3", 7},  {"(1 + 2) * 3", 9},     {"10 - 4 - 3", 3},
                                          {"64 / 4 / 2", 8}, {"2^3^2", 512},         {"2^-1", 0.5},
                                          {"+4", 4},         {"1.5e3 + .5", 1500.5}, {"2e-3 * 1E+3", 2},
                                          {"-2^2", 4},       {"10 % 3", 1}};

inline const Shown kPrecedenceShown[] = {{"1,234 + 1", CalcResult::Kind::number, "1,235"},
                                         {"24*7", CalcResult::Kind::number, "168"},
                                         {"2×3÷4", CalcResult::Kind::number, "1.5"},
                                         {"12 * 3 =", CalcResult::Kind::number, "36"}};

// A marked operand of "^" counts as its fraction; a value already a percentage is divided by 100 at
// the next mark; functions take the fraction.
inline const Value kPercentValues[] = {{"200 - 25%", 150},  {"200 + 10%", 220}, {"200 * 10%", 20},
                                       {"200 / 10%", 2000}, {"10% + 5", 5.1},   {"50% * 50%", 0.25},
                                       {"50% / 25%", 2},    {"10%^2", 0.01},    {"4^50%", 2},
                                       {"(50%)%", 0.005},   {"-5%", -0.05},     {"sqrt 25%", 0.5}};

inline const Shown kPercentShown[] = {{"200 + 10%", CalcResult::Kind::number, "220"},
                                      {"10%^2", CalcResult::Kind::number, "0.01"},
                                      {"(50%)", CalcResult::Kind::percent, "0.5"}};

// Trigonometry works in degrees.
inline const Value kFunctionValues[] = {
    {"sin 180", 0}, {"cos 180", -1}, {"sin(30)", 0.5}, {"tan 45", 1},      {"asin 1", 90},  {"acos 0", 90},
    {"atan 1", 45}, {"√16 + 1", 5},  {"cbrt -8", -2},  {"ln e", 1},        {"log 1000", 3}, {"log10(100)", 2},
    {"log2 8", 3},  {"abs -5", 5},   {"round 2.5", 3}, {"floor -1.5", -2}, {"ceil 1.2", 2}, {"exp 0", 1}};

inline const Shown kFunctionShown[] = {{"π", CalcResult::Kind::number, "3.141593"}};

inline const Value kPreviousAnswerValues[] = {{"ans + 1", 42, 41}, {"last - 1", 6, 7}};

// "ans" with no earlier answer is unknown.
inline const Refused kErrorRows[] = {{"2 $ 3", "Unexpected '$'"},
                                     {"1.2.3", "Unexpected '1.2.3'"},
                                     {"2 3", "Unexpected '3'"},
                                     {"5 +", "Unexpected 'end'"},
                                     {"5 ✓", "Unexpected '✓'"},
                                     {"foo + 1", "Unknown 'foo'"},
                                     {"ans + 1", "Unknown 'ans'"},
                                     {"5 ft in kg", "Can't convert ft to kg"},
                                     {"(1 + 2", "Unbalanced parentheses"},
                                     {"1 + 2)", "Unbalanced parentheses"},
                                     {"1 / 0", "Division by zero"},
                                     {"5 % 0", "Division by zero"},
                                     {"10 / 0%", "Division by zero"},
                                     {"10% / 0", "Division by zero"},
                                     {"sqrt -1", "Not a number"},
                                     {"10^400", "Not a number"},
                                     {"tan 90", "Not a number"},
                                     {"1e999", "Not a number"}};

}  // namespace vantrelle::calcrows
