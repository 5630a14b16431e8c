#pragma once

#include <string>

namespace vantrelle {

// One token of a calculator expression.
struct CalcToken {
    enum class Type { number, ident, op, lparen, rparen };

    Type type = Type::number;
    double number = 0;  // for number
    std::string text;   // the identifier, the operator character, or the source text of a number

    [[nodiscard]] bool isOp(char c) const { return type == Type::op && text.size() == 1 && text[0] == c; }
    bool operator==(const CalcToken&) const = default;
};

}  // namespace vantrelle
