#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "calc/CalcToken.h"

namespace vantrelle {

// A value of the grammar: a number that may carry the percent mark.
struct CalcValue {
    double value = 0;
    bool isPercent = false;
    bool operator==(const CalcValue&) const = default;
};

// Recursive descent over the tokens of one expression, lowest precedence first:
//   all        = expression END
//   expression = term (("+" | "-") term)*
//   term       = power (("*" | "/" | "%") power)*        "%" here is the remainder
//   power      = unary ("^" power)?                      right-associative; "-2^2" is (-2)^2
//   unary      = ("-" | "+") unary | postfix
//   postfix    = primary "%"?                            the percent mark, when nothing operand-like follows
//   primary    = number | constant | answer | function argument | "(" expression ")"
// Throws CalcError. Nesting deeper than maxDepth throws CalcParser::TooDeep, so no input can exhaust
// the stack.
class CalcParser {
public:
    static constexpr int maxDepth = 500;  // levels of the depth guard: about 250 nested parentheses
    struct TooDeep : std::exception {
        [[nodiscard]] const char* what() const noexcept override { return "expression nested too deeply"; }
    };

    CalcParser(const std::vector<CalcToken>& tokens, std::optional<double> previous);

    [[nodiscard]] CalcValue parseAll();

    // Arithmetic between values that may be percentages: "200 + 10%" is 220, "200 * 10%" is 20.
    [[nodiscard]] static CalcValue combine(CalcValue a, char op, CalcValue b);
    // Tokenises and parses a whole expression.
    [[nodiscard]] static CalcValue evaluate(std::string_view text, std::optional<double> previous);

private:
    CalcValue parseExpression();
    CalcValue parseTerm();
    CalcValue parsePower();
    CalcValue parseUnary();
    CalcValue parsePostfix();
    CalcValue parsePrimary();
    CalcValue parseFunctionArgument();
    // At a "(": the expression inside and its closing ")".
    CalcValue parseParenthesized();

    [[nodiscard]] const CalcToken* peek(std::size_t ahead = 0) const;
    [[nodiscard]] bool nextIsOp(char c) const;
    [[noreturn]] void failAtCurrent() const;

    const std::vector<CalcToken>& m_tokens;
    std::optional<double> m_previous;
    std::size_t m_at = 0;
    int m_depth = 0;
};

}  // namespace vantrelle
