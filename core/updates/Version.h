#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrelle {

// A release version: numbers separated by dots ("1.10.2", a leading "v" allowed), an optional
// pre-release after "-" or "~" ("1.2.0-beta.2", "1.2.0~rc1") that sorts before the release itself,
// and build data after "+" that takes no part in the order. Missing numbers count as zero.
class Version {
public:
    [[nodiscard]] static std::optional<Version> parse(std::string_view text);

    // Negative, zero or positive as this sorts before, with or after `other`.
    [[nodiscard]] int compare(const Version& other) const;
    bool operator<(const Version& other) const { return compare(other) < 0; }
    bool operator==(const Version& other) const { return compare(other) == 0; }

private:
    std::vector<std::uint64_t> m_numbers;
    std::vector<std::string> m_preRelease;  // empty for a release
};

}  // namespace vantrelle
