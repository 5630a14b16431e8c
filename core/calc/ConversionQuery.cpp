#include "calc/ConversionQuery.h"

#include <array>
#include <vector>

#include "calc/CalcText.h"

namespace vantrelle {

namespace {

constexpr std::array<std::string_view, 5> kSymbols{"$", "€", "£", "₹", "¥"};

std::vector<std::string_view> words(std::string_view text) {
    std::vector<std::string_view> out;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t next = text.find(' ', at);
        const std::size_t end = next == std::string_view::npos ? text.size() : next;
        if (end > at) out.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return out;
}

std::string joined(const std::vector<std::string_view>& parts, std::size_t from, std::size_t to) {
    std::string out;
    for (std::size_t i = from; i < to; ++i) {
        if (i > from) out.push_back(' ');
        out.append(parts[i]);
    }
    return out;
}

bool isDigit(std::string_view text, std::size_t at) {
    return at < text.size() && text[at] >= '0' && text[at] <= '9';
}

std::size_t skipSpaces(std::string_view text, std::size_t at) {
    while (at < text.size()) {
        const auto cp = CalcText::decode(text, at);
        if (!CalcText::isSpace(cp.value)) break;
        at += cp.length;
    }
    return at;
}

}  // namespace

std::optional<ConversionQuery> ConversionQuery::split(std::string_view normalized) {
    const auto parts = words(normalized);
    if (parts.size() < 3) return std::nullopt;
    for (std::size_t i = parts.size() - 2; i >= 1; --i) {
        if (parts[i] == "in" || parts[i] == "to" || parts[i] == "as") {
            return ConversionQuery{joined(parts, 0, i), joined(parts, i + 1, parts.size())};
        }
    }
    return std::nullopt;
}

std::optional<SplitAmount> SplitAmount::parse(std::string_view source) {
    std::size_t at = skipSpaces(source, 0);
    SplitAmount result;
    for (std::string_view symbol : kSymbols) {
        if (source.substr(at).starts_with(symbol)) {
            result.symbol = symbol;
            at += symbol.size();
            break;
        }
    }
    at = skipSpaces(source, at);

    // -?[0-9][0-9,]*\.?[0-9]*(e-?[0-9]+)?
    std::string number;
    if (at < source.size() && source[at] == '-') number.push_back(source[at++]);
    if (!isDigit(source, at)) return std::nullopt;
    while (isDigit(source, at) || (at < source.size() && source[at] == ',')) {
        if (source[at] != ',') number.push_back(source[at]);
        ++at;
    }
    if (at < source.size() && source[at] == '.') number.push_back(source[at++]);
    while (isDigit(source, at)) number.push_back(source[at++]);
    if (at < source.size() && source[at] == 'e') {
        const bool negative = at + 1 < source.size() && source[at + 1] == '-';
        const std::size_t firstDigit = at + (negative ? 2 : 1);
        if (isDigit(source, firstDigit)) {
            number.append(source.substr(at, firstDigit - at));
            at = firstDigit;
            while (isDigit(source, at)) number.push_back(source[at++]);
        }
    }
    const auto amount = CalcText::parseDouble(number);
    if (!amount) return std::nullopt;
    result.amount = *amount;

    at = skipSpaces(source, at);
    result.rest = std::string(source.substr(at));
    return result;
}

}  // namespace vantrelle
