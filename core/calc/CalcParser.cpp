#include "calc/CalcParser.h"

#include <cmath>
#include <numbers>

#include "calc/CalcError.h"
#include "calc/CalcFunctions.h"
#include "calc/CalcTokenizer.h"

namespace vantrelle {

namespace {

using Type = CalcToken::Type;

double fraction(CalcValue v) {
    return v.isPercent ? v.value / 100.0 : v.value;
}

bool isAnswerName(std::string_view name) {
    return name == "ans" || name == "answer" || name == "prev" || name == "last";
}

// Counts one level of nesting for as long as it lives.
class DepthGuard {
public:
    explicit DepthGuard(int& depth) : m_depth(depth) {
        if (++m_depth > CalcParser::maxDepth) {
            --m_depth;
            throw CalcParser::TooDeep();
        }
    }
    ~DepthGuard() { --m_depth; }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;

private:
    int& m_depth;
};

}  // namespace

CalcParser::CalcParser(const std::vector<CalcToken>& tokens, std::optional<double> previous)
    : m_tokens(tokens), m_previous(previous) {}

CalcValue CalcParser::evaluate(std::string_view text, std::optional<double> previous) {
    const auto tokens = CalcTokenizer::tokenize(text);
    return CalcParser(tokens, previous).parseAll();
}

const CalcToken* CalcParser::peek(std::size_t ahead) const {
    return m_at + ahead < m_tokens.size() ? &m_tokens[m_at + ahead] : nullptr;
}

bool CalcParser::nextIsOp(char c) const {
    const CalcToken* token = peek();
    return token && token->isOp(c);
}

void CalcParser::failAtCurrent() const {
    const CalcToken* token = peek();
    if (!token) throw CalcError::unexpected("end");
    if (token->type == Type::rparen) throw CalcError::unbalancedParentheses();
    throw CalcError::unexpected(token->text);
}

CalcValue CalcParser::parseAll() {
    const CalcValue value = parseExpression();
    if (m_at < m_tokens.size()) failAtCurrent();
    return value;
}

CalcValue CalcParser::parseExpression() {
    CalcValue value = parseTerm();
    while (nextIsOp('+') || nextIsOp('-')) {
        const char op = m_tokens[m_at++].text[0];
        value = combine(value, op, parseTerm());
    }
    return value;
}

CalcValue CalcParser::parseTerm() {
    CalcValue value = parsePower();
    while (nextIsOp('*') || nextIsOp('/') || nextIsOp('%')) {
        const char op = m_tokens[m_at++].text[0];
        const CalcValue right = parsePower();
        if (op == '%') {
            if (right.value == 0) throw CalcError::divisionByZero();
            value = CalcValue{std::fmod(value.value, right.value), false};
        } else {
            value = combine(value, op, right);
        }
    }
    return value;
}

CalcValue CalcParser::parsePower() {
    DepthGuard guard(m_depth);  // "2^2^2^…" nests to the right
    const CalcValue base = parseUnary();
    if (!nextIsOp('^')) return base;
    ++m_at;
    const CalcValue exponent = parsePower();
    return CalcValue{std::pow(fraction(base), fraction(exponent)), false};
}

CalcValue CalcParser::parseUnary() {
    // Parentheses, unary signs and function arguments all nest through here.
    DepthGuard guard(m_depth);
    if (nextIsOp('-')) {
        ++m_at;
        CalcValue value = parseUnary();
        value.value = -value.value;
        return value;
    }
    if (nextIsOp('+')) {
        ++m_at;
        return parseUnary();
    }
    return parsePostfix();
}

CalcValue CalcParser::parsePostfix() {
    CalcValue value = parsePrimary();
    if (!nextIsOp('%')) return value;
    const CalcToken* after = peek(1);
    const bool isMark = !after || after->type == Type::op || after->type == Type::rparen;
    if (!isMark) return value;  // "a % b": the remainder, for parseTerm
    ++m_at;
    if (value.isPercent) value.value /= 100.0;
    value.isPercent = true;
    return value;
}

CalcValue CalcParser::parsePrimary() {
    const CalcToken* token = peek();
    if (!token) failAtCurrent();
    switch (token->type) {
        case Type::number:
            ++m_at;
            return CalcValue{token->number, false};
        case Type::lparen:
            return parseParenthesized();
        case Type::ident: {
            const std::string& name = token->text;
            ++m_at;
            if (name == "pi") return CalcValue{std::numbers::pi, false};
            if (name == "e") return CalcValue{std::numbers::e, false};
            if (isAnswerName(name)) {
                if (!m_previous) throw CalcError::unknownIdentifier(name);
                return CalcValue{*m_previous, false};
            }
            if (CalcFunctions::isFunction(name)) {
                const double argument = fraction(parseFunctionArgument());
                return CalcValue{*CalcFunctions::apply(name, argument), false};
            }
            throw CalcError::unknownIdentifier(name);
        }
        case Type::op:
        case Type::rparen:
            failAtCurrent();
    }
    failAtCurrent();
}

CalcValue CalcParser::parseParenthesized() {
    ++m_at;  // the "("
    const CalcValue inner = parseExpression();
    const CalcToken* close = peek();
    if (!close) throw CalcError::unbalancedParentheses();
    if (close->type != Type::rparen) failAtCurrent();
    ++m_at;
    return inner;
}

CalcValue CalcParser::parseFunctionArgument() {
    const CalcToken* token = peek();
    if (token && token->type == Type::lparen) return parseParenthesized();
    return parseUnary();
}

CalcValue CalcParser::combine(CalcValue a, char op, CalcValue b) {
    double result = 0;
    if (a.isPercent) {
        const double left = a.value / 100.0;
        const double right = fraction(b);
        switch (op) {
            case '+':
                result = left + right;
                break;
            case '-':
                result = left - right;
                break;
            case '*':
                result = left * right;
                break;
            default:
                if (right == 0) throw CalcError::divisionByZero();
                result = left / right;
        }
    } else if (b.isPercent) {
        switch (op) {
            case '+':
                result = a.value * (1 + b.value / 100.0);
                break;
            case '-':
                result = a.value * (1 - b.value / 100.0);
                break;
            case '*':
                result = a.value * b.value / 100.0;
                break;
            default:
                if (b.value == 0) throw CalcError::divisionByZero();
                result = a.value / (b.value / 100.0);
        }
    } else {
        switch (op) {
            case '+':
                result = a.value + b.value;
                break;
            case '-':
                result = a.value - b.value;
                break;
            case '*':
                result = a.value * b.value;
                break;
            default:
                if (b.value == 0) throw CalcError::divisionByZero();
                result = a.value / b.value;
        }
    }
    return CalcValue{result, false};
}

}  // namespace vantrelle
