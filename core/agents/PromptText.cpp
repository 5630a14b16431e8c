#include "agents/PromptText.h"

#include "agents/Graphemes.h"

namespace vantrelle {

namespace {

constexpr std::size_t kMaxCharacters = 90;

bool isWhitespace(char32_t cp) {
    return (cp >= 0x09 && cp <= 0x0D) || cp == 0x20 || cp == 0x85 || cp == 0xA0 || cp == 0x1680 ||
           (cp >= 0x2000 && cp <= 0x200A) || cp == 0x2028 || cp == 0x2029 || cp == 0x202F || cp == 0x205F ||
           cp == 0x3000;
}

// The code point that starts at `at`, with its length; anything undecodable is not white space.
char32_t codePointAt(std::string_view text, std::size_t at, std::size_t& length) {
    const auto lead = static_cast<unsigned char>(text[at]);
    length = 1;
    if (lead < 0x80) return lead;
    std::size_t need = (lead & 0xE0) == 0xC0 ? 2 : (lead & 0xF0) == 0xE0 ? 3 : (lead & 0xF8) == 0xF0 ? 4 : 0;
    if (need == 0 || at + need > text.size()) return 0xFFFD;
    char32_t cp = lead & (0x7F >> need);
    for (std::size_t i = 1; i < need; ++i) {
        const auto next = static_cast<unsigned char>(text[at + i]);
        if ((next & 0xC0) != 0x80) return 0xFFFD;
        cp = (cp << 6) | (next & 0x3F);
    }
    length = need;
    return cp;
}

// Start of the code point that ends at `end` (exclusive).
std::size_t previousStart(std::string_view text, std::size_t end) {
    std::size_t start = end - 1;
    while (start > 0 && end - start < 4 && (static_cast<unsigned char>(text[start]) & 0xC0) == 0x80) --start;
    return start;
}

}  // namespace

std::string_view trimWhitespace(std::string_view text) {
    std::size_t begin = 0;
    while (begin < text.size()) {
        std::size_t length = 0;
        if (!isWhitespace(codePointAt(text, begin, length))) break;
        begin += length;
    }
    std::size_t end = text.size();
    while (end > begin) {
        const std::size_t start = previousStart(text, end);
        std::size_t length = 0;
        const char32_t cp = codePointAt(text, start, length);
        if (start + length != end || !isWhitespace(cp)) break;
        end = start;
    }
    return text.substr(begin, end - begin);
}

std::string cleanPrompt(std::string_view text) {
    std::string flat(text);
    for (char& c : flat) {
        if (c == '\n') c = ' ';
    }
    std::string_view trimmed = trimWhitespace(flat);
    // PERF NOTE: a text of at most 90 bytes has at most 90 characters; only longer ones are walked.
    if (trimmed.size() <= kMaxCharacters || Graphemes::count(trimmed, kMaxCharacters + 1) <= kMaxCharacters) {
        return std::string(trimmed);
    }
    std::string result(trimmed.substr(0, Graphemes::prefixBytes(trimmed, kMaxCharacters - 1)));
    result += "\u2026";
    return result;
}

}  // namespace vantrelle
