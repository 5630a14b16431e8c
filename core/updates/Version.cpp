#include "updates/Version.h"

#include <algorithm>
#include <charconv>

namespace vantrelle {

namespace {

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    while (true) {
        const auto at = text.find(separator);
        parts.push_back(text.substr(0, at));
        if (at == std::string_view::npos) return parts;
        text.remove_prefix(at + 1);
    }
}

std::optional<std::uint64_t> number(std::string_view text) {
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

bool identifierChar(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-';
}

// Numeric identifiers sort numerically and before alphanumeric ones, which sort as text.
int compareIdentifier(const std::string& a, const std::string& b) {
    const auto na = number(a);
    const auto nb = number(b);
    if (na && nb) return *na < *nb ? -1 : (*na > *nb ? 1 : 0);
    if (na || nb) return na ? -1 : 1;
    return a.compare(b) < 0 ? -1 : (a == b ? 0 : 1);
}

}  // namespace

std::optional<Version> Version::parse(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\n'))
        text.remove_suffix(1);
    if (!text.empty() && (text.front() == 'v' || text.front() == 'V')) text.remove_prefix(1);
    text = text.substr(0, text.find('+'));
    const auto pre = text.find_first_of("-~");
    Version version;
    for (std::string_view part : split(text.substr(0, pre), '.')) {
        const auto value = number(part);
        if (!value) return std::nullopt;
        version.m_numbers.push_back(*value);
    }
    if (pre != std::string_view::npos) {
        for (std::string_view part : split(text.substr(pre + 1), '.')) {
            if (part.empty() || !std::all_of(part.begin(), part.end(), identifierChar)) return std::nullopt;
            version.m_preRelease.emplace_back(part);
        }
    }
    // Trailing zeros say nothing: 1.2 is 1.2.0.
    while (version.m_numbers.size() > 1 && version.m_numbers.back() == 0) version.m_numbers.pop_back();
    return version;
}

int Version::compare(const Version& other) const {
    const std::size_t count = std::max(m_numbers.size(), other.m_numbers.size());
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint64_t a = i < m_numbers.size() ? m_numbers[i] : 0;
        const std::uint64_t b = i < other.m_numbers.size() ? other.m_numbers[i] : 0;
        if (a != b) return a < b ? -1 : 1;
    }
    if (m_preRelease.empty() || other.m_preRelease.empty())
        return m_preRelease.empty() == other.m_preRelease.empty() ? 0 : (m_preRelease.empty() ? 1 : -1);
    const std::size_t common = std::min(m_preRelease.size(), other.m_preRelease.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (const int c = compareIdentifier(m_preRelease[i], other.m_preRelease[i]); c != 0) return c;
    }
    return m_preRelease.size() == other.m_preRelease.size()
               ? 0
               : (m_preRelease.size() < other.m_preRelease.size() ? -1 : 1);
}

}  // namespace vantrelle
