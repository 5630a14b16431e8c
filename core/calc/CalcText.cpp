#include "calc/CalcText.h"

#include <locale.h>

#include <charconv>
#include <clocale>
#include <cstdlib>

namespace vantrelle {

CalcText::CodePoint CalcText::decode(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(at);
    if (lead < 0x80) return {lead, 1};
    std::size_t length = 0;
    char32_t value = 0;
    if ((lead & 0xE0) == 0xC0) {
        length = 2;
        value = lead & 0x1F;
    } else if ((lead & 0xF0) == 0xE0) {
        length = 3;
        value = lead & 0x0F;
    } else if ((lead & 0xF8) == 0xF0) {
        length = 4;
        value = lead & 0x07;
    } else {
        return {0xFFFD, 1};
    }
    if (at + length > text.size()) return {0xFFFD, 1};
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned char next = byte(at + i);
        if ((next & 0xC0) != 0x80) return {0xFFFD, 1};
        value = (value << 6) | (next & 0x3F);
    }
    return {value, length};
}

void CalcText::append(std::string& out, char32_t c) {
    if (c < 0x80) {
        out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (c >> 6)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else if (c < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (c >> 12)));
        out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (c >> 18)));
        out.push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
}

bool CalcText::isSpace(char32_t c) {
    return c == U' ' || (c >= U'\t' && c <= U'\r') || c == 0x85 || c == 0xA0 || c == 0x1680 ||
           (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 || c == 0x202F || c == 0x205F ||
           c == 0x3000;
}

bool CalcText::isLetter(char32_t c) {
    if ((c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z')) return true;
    if (c == 0xAA || c == 0xB5 || c == 0xBA) return true;
    if (c >= 0xC0 && c <= 0x24F) return c != 0xD7 && c != 0xF7;  // Latin-1 and Latin Extended, not × ÷
    if (c >= 0x370 && c <= 0x3FF) return c != 0x375 && c != 0x37E && c != 0x384 && c != 0x385 && c != 0x387;
    return c >= 0x400 && c <= 0x4FF;  // Cyrillic
}

char32_t CalcText::toLower(char32_t c) {
    if (c >= U'A' && c <= U'Z') return c + 32;
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 32;
    if (c >= 0x391 && c <= 0x3AB && c != 0x3A2) return c + 32;
    if (c >= 0x410 && c <= 0x42F) return c + 32;
    if (c >= 0x400 && c <= 0x40F) return c + 80;
    return c;
}

std::string CalcText::lowercased(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const auto cp = decode(text, at);
        if (cp.value == 0xFFFD && cp.length == 1) {
            out.push_back(text[at]);  // not UTF-8: keep the byte as it was
        } else {
            append(out, toLower(cp.value));
        }
        at += cp.length;
    }
    return out;
}

std::string_view CalcText::trimmed(std::string_view text) {
    std::size_t begin = 0;
    while (begin < text.size()) {
        const auto cp = decode(text, begin);
        if (!isSpace(cp.value)) break;
        begin += cp.length;
    }
    std::size_t end = begin;
    for (std::size_t at = begin; at < text.size();) {
        const auto cp = decode(text, at);
        at += cp.length;
        if (!isSpace(cp.value)) end = at;
    }
    return text.substr(begin, end - begin);
}

std::string CalcText::collapsedSpaces(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    bool inSpace = false;
    for (std::size_t at = 0; at < text.size();) {
        const auto cp = decode(text, at);
        if (isSpace(cp.value)) {
            if (!inSpace) out.push_back(' ');
            inSpace = true;
        } else {
            out.append(text.substr(at, cp.length));
            inSpace = false;
        }
        at += cp.length;
    }
    return out;
}

std::optional<double> CalcText::parseDouble(std::string_view text) {
    double value = 0;
    const char* begin = text.data();
    const char* end = begin + text.size();
    const auto [stop, error] = std::from_chars(begin, end, value);
    if (stop != end || text.empty()) return std::nullopt;
    if (error == std::errc()) return value;
    if (error != std::errc::result_out_of_range) return std::nullopt;
    // from_chars leaves the value alone when out of range; strtod in the C locale gives ±HUGE_VAL or
    // the nearest small value, as a calculator should.
    static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", nullptr);
    const std::string copy(text);
    return strtod_l(copy.c_str(), nullptr, cLocale);
}

}  // namespace vantrelle
