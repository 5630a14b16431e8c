#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantrelle {

// The little UTF-8 handling the calculator needs: decoding one code point, a few character classes and
// lower-casing for the scripts people type units and currency names in.
class CalcText {
public:
    struct CodePoint {
        char32_t value = 0;
        std::size_t length = 1;  // bytes taken; 1 for a byte that isn't valid UTF-8
    };

    [[nodiscard]] static CodePoint decode(std::string_view text, std::size_t at);
    static void append(std::string& out, char32_t codePoint);

    [[nodiscard]] static bool isSpace(char32_t c);
    [[nodiscard]] static bool isLetter(char32_t c);
    [[nodiscard]] static bool isDigit(char32_t c) { return c >= U'0' && c <= U'9'; }
    [[nodiscard]] static char32_t toLower(char32_t c);

    // Lower-cases ASCII, Latin-1, Greek and Cyrillic; other characters pass through unchanged.
    [[nodiscard]] static std::string lowercased(std::string_view text);
    // Drops white space and line breaks at both ends.
    [[nodiscard]] static std::string_view trimmed(std::string_view text);
    // Replaces every run of white space with one blank.
    [[nodiscard]] static std::string collapsedSpaces(std::string_view text);

    // The whole text as a number in C syntax, whatever the process locale; magnitudes beyond the range
    // of a double become infinity or zero. Nothing when the text isn't a number.
    [[nodiscard]] static std::optional<double> parseDouble(std::string_view text);
};

}  // namespace vantrelle
