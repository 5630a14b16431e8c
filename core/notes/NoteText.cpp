#include <array>

#include "agents/Graphemes.h"
#include "notes/Note.h"

namespace vantrelle {

namespace NoteText {

namespace {

// White space beyond ASCII that a trimmed line drops: no-break, the typographic spaces, the
// ideographic space and the line and paragraph separators, in UTF-8.
constexpr std::array<std::string_view, 18> kWideSpaces = {
    "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006",
    "\u2007", "\u2008", "\u2009", "\u200A", "\u202F", "\u205F", "\u3000", "\u2028", "\u2029",
};

bool isAsciiSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

// The length of the white space that starts (or, with `atEnd`, ends) `text`'s first character.
std::size_t spaceLength(std::string_view text, bool atEnd) {
    if (text.empty()) return 0;
    if (isAsciiSpace(atEnd ? text.back() : text.front())) return 1;
    for (std::string_view space : kWideSpaces) {
        if (atEnd ? text.ends_with(space) : text.starts_with(space)) return space.size();
    }
    return 0;
}

// Calls `visit` with each line that isn't blank, trimmed, until it returns true.
template <typename Visit>
void forEachFilledLine(std::string_view body, Visit&& visit) {
    while (!body.empty()) {
        const std::size_t end = body.find_first_of("\r\n");
        const std::string_view line = trimmed(body.substr(0, end));
        if (!line.empty() && visit(line)) return;
        if (end == std::string_view::npos) return;
        body.remove_prefix(end + 1);
    }
}

}  // namespace

std::string_view trimmed(std::string_view text) {
    while (const std::size_t n = spaceLength(text, false)) text.remove_prefix(n);
    while (const std::size_t n = spaceLength(text, true)) text.remove_suffix(n);
    return text;
}

bool isBlank(std::string_view text) {
    return trimmed(text).empty();
}

std::string title(std::string_view body) {
    std::string_view first;
    forEachFilledLine(body, [&](std::string_view line) {
        first = line;
        return true;
    });
    if (first.empty()) return std::string(untitled);
    if (Graphemes::count(first, kTitleCutAt) < kTitleCutAt) return std::string(first);
    return std::string(first.substr(0, Graphemes::prefixBytes(first, kTitleKept))) + "…";
}

std::string preview(std::string_view body) {
    int seen = 0;
    std::string_view second;
    forEachFilledLine(body, [&](std::string_view line) {
        if (++seen < 2) return false;
        second = line;
        return true;
    });
    return std::string(second);
}

}  // namespace NoteText

}  // namespace vantrelle
