#pragma once

#include <array>
#include <string>
#include <string_view>

namespace vantrelle {

// One application's time, as the views see it.
struct AppUsage {
    std::string id;  // desktop id
    std::string name;
    double seconds = 0;
    std::string path;  // the program file, empty when unknown
    bool operator==(const AppUsage&) const = default;
};

// One application in a day file.
struct ScreenTimeEntry {
    std::string name;
    double seconds = 0;
    std::string path;  // "bundlePath" in the file; empty when unknown
    bool operator==(const ScreenTimeEntry&) const = default;
};

enum class AppCategory {
    utilities,
    development,
    browsing,
    productivity,
    communication,
    entertainment,
    other
};

inline constexpr std::array<std::string_view, 7> kAppCategoryNames{
    "utilities", "development", "browsing", "productivity", "communication", "entertainment", "other"};

[[nodiscard]] constexpr std::string_view rawName(AppCategory category) {
    return kAppCategoryNames[static_cast<std::size_t>(category)];
}

// Sorts an application into a category by fragments of its id, lower-cased: the first list (in the
// order utilities, development, browsing, communication, entertainment, productivity) with a fragment
// that occurs wins. Fragments are loose on purpose ("arc" matches "com.example.search").
[[nodiscard]] AppCategory appCategory(std::string_view id);

}  // namespace vantrelle
