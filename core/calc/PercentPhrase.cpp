#include "calc/PercentPhrase.h"

#include <array>
#include <cmath>
#include <string>

#include "calc/CalcError.h"
#include "calc/CalcFormat.h"
#include "calc/CalcParser.h"
#include "calc/CalcText.h"

namespace vantrelle {

namespace {

constexpr int kFraction = 6;

// Matching by hand rather than with <regex>: the library's backtracking recurses once per character
// and a long line would exhaust the stack. Each matcher consumes from `at` and returns the new position.
using Position = std::optional<std::size_t>;

Position spaces(std::string_view text, std::size_t at, bool required) {
    std::size_t end = at;
    while (end < text.size()) {
        const auto cp = CalcText::decode(text, end);
        if (!CalcText::isSpace(cp.value)) break;
        end += cp.length;
    }
    if (required && end == at) return std::nullopt;
    return end;
}

Position literal(std::string_view text, Position at, std::string_view word) {
    if (!at || !text.substr(*at).starts_with(word)) return std::nullopt;
    return *at + word.size();
}

Position anyOf(std::string_view text, Position at, std::initializer_list<std::string_view> words) {
    for (std::string_view word : words) {
        if (auto end = literal(text, at, word)) return end;
    }
    return std::nullopt;
}

Position requiredSpaces(std::string_view text, Position at) {
    return at ? spaces(text, *at, true) : std::nullopt;
}

struct Groups {
    std::string x;
    std::string y;
};

// "^(.+?)<tail>(.+)$": x is the shortest non-empty head after which `tail` matches and leaves a
// non-empty y.
template <typename Tail>
std::optional<Groups> matchLazy(std::string_view text, Tail tail) {
    for (std::size_t split = 1; split < text.size(); ++split) {
        const Position end = tail(split);
        if (end && *end < text.size())
            return Groups{std::string(text.substr(0, split)), std::string(text.substr(*end))};
    }
    return std::nullopt;
}

std::optional<Groups> whatPercentOf(std::string_view text) {
    return matchLazy(text, [text](std::size_t at) {
        Position p = requiredSpaces(text, at);
        p = anyOf(text, p, {"as", "is"});
        p = requiredSpaces(text, p);
        if (auto what = requiredSpaces(text, literal(text, p, "what"))) p = what;
        p = anyOf(text, p, {"%", "percentage", "percent"});
        p = requiredSpaces(text, p);
        p = literal(text, p, "of");
        return requiredSpaces(text, p);
    });
}

std::optional<Groups> percentWord(std::string_view text, std::string_view word) {
    return matchLazy(text, [text, word](std::size_t at) {
        Position p = spaces(text, at, false);
        p = literal(text, p, "%");
        p = requiredSpaces(text, p);
        p = literal(text, p, word);
        return requiredSpaces(text, p);
    });
}

double number(const std::string& text, std::optional<double> previous) {
    return CalcParser::evaluate(text, previous).value;
}

double finite(double value) {
    if (!std::isfinite(value)) throw CalcError::notANumber();
    return value;
}

CalcResult percentResult(double value, std::string display, std::string detail) {
    return CalcResult{std::move(display), std::move(detail), value, CalcResult::Kind::percent};
}

}  // namespace

std::optional<CalcResult> PercentPhrase::evaluate(std::string_view text, std::optional<double> previous) {
    if (auto groups = whatPercentOf(text)) {
        const double x = number(groups->x, previous);
        const double y = number(groups->y, previous);
        if (y == 0) throw CalcError::divisionByZero();
        const double v = finite(x / y * 100);
        return percentResult(v, CalcFormat::format(v, kFraction) + "%", groups->x + " of " + groups->y);
    }
    if (auto groups = percentWord(text, "of")) {
        const double v = finite(number(groups->x, previous) / 100 * number(groups->y, previous));
        return percentResult(v, CalcFormat::format(v, kFraction), groups->x + "% of " + groups->y);
    }
    if (auto groups = percentWord(text, "off")) {
        const double x = number(groups->x, previous);
        const double y = number(groups->y, previous);
        const double v = finite((1 - x / 100) * y);
        const double saving = finite(y - v);
        return percentResult(
            v, CalcFormat::format(v, kFraction),
            groups->y + " with " + groups->x + "% off · saves " + CalcFormat::format(saving, kFraction));
    }
    return std::nullopt;
}

}  // namespace vantrelle
