#include "calc/CalcTokenizer.h"

#include "calc/CalcError.h"
#include "calc/CalcText.h"

namespace vantrelle {

namespace {

constexpr char32_t kDegree = 0xB0;

bool digitAt(std::string_view text, std::size_t at) {
    return at < text.size() && text[at] >= '0' && text[at] <= '9';
}

// A number: digits and points, "," before a digit as a group separator, then an optional exponent.
CalcToken readNumber(std::string_view text, std::size_t& at) {
    const std::size_t start = at;
    std::string digits;
    while (at < text.size()) {
        const char c = text[at];
        if ((c >= '0' && c <= '9') || c == '.') {
            digits.push_back(c);
            ++at;
        } else if (c == ',' && digitAt(text, at + 1)) {
            ++at;
        } else {
            break;
        }
    }
    if (at < text.size() && text[at] == 'e') {
        const bool signedExponent = at + 1 < text.size() && (text[at + 1] == '-' || text[at + 1] == '+');
        const std::size_t firstDigit = at + (signedExponent ? 2 : 1);
        if (digitAt(text, firstDigit)) {
            digits.append(text.substr(at, firstDigit - at));
            at = firstDigit;
            while (digitAt(text, at)) digits.push_back(text[at++]);
        }
    }
    const std::string source(text.substr(start, at - start));
    const auto value = CalcText::parseDouble(digits);
    if (!value) throw CalcError::unexpected(source);
    return CalcToken{CalcToken::Type::number, *value, source};
}

CalcToken readIdentifier(std::string_view text, std::size_t& at) {
    const std::size_t start = at;
    while (at < text.size()) {
        const auto cp = CalcText::decode(text, at);
        if (!CalcText::isLetter(cp.value) && !CalcText::isDigit(cp.value) && cp.value != kDegree) break;
        at += cp.length;
    }
    return CalcToken{CalcToken::Type::ident, 0, std::string(text.substr(start, at - start))};
}

}  // namespace

std::vector<CalcToken> CalcTokenizer::tokenize(std::string_view text) {
    std::vector<CalcToken> tokens;
    std::size_t at = 0;
    while (at < text.size()) {
        const auto cp = CalcText::decode(text, at);
        const char32_t c = cp.value;
        if (CalcText::isSpace(c)) {
            at += cp.length;
        } else if (CalcText::isDigit(c) || (c == U'.' && digitAt(text, at + 1))) {
            tokens.push_back(readNumber(text, at));
        } else if (CalcText::isLetter(c) || c == kDegree) {
            tokens.push_back(readIdentifier(text, at));
        } else if (c == U'(') {
            tokens.push_back(CalcToken{CalcToken::Type::lparen, 0, "("});
            ++at;
        } else if (c == U')') {
            tokens.push_back(CalcToken{CalcToken::Type::rparen, 0, ")"});
            ++at;
        } else if (c == U'+' || c == U'-' || c == U'*' || c == U'/' || c == U'^' || c == U'%') {
            tokens.push_back(CalcToken{CalcToken::Type::op, 0, std::string(1, static_cast<char>(c))});
            ++at;
        } else {
            throw CalcError::unexpected(std::string(text.substr(at, cp.length)));
        }
    }
    return tokens;
}

}  // namespace vantrelle
