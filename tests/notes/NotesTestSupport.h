#pragma once

#include <fmt/format.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace vantrelle::testing {

// Ids "00000000-0000-4000-8000-000000000001", "…002" and so on, so tests can name the records they make.
inline std::function<std::string()> countingIds() {
    return [n = 0]() mutable { return fmt::format("00000000-0000-4000-8000-{:012}", ++n); };
}

inline std::string countedId(int n) {
    return fmt::format("00000000-0000-4000-8000-{:012}", n);
}

// The copies a store moved aside because it couldn't read them.
inline std::vector<std::filesystem::path> unreadableCopies(const std::filesystem::path& file) {
    std::vector<std::filesystem::path> copies;
    const std::string prefix = file.filename().string() + ".unreadable-";
    for (const auto& entry : std::filesystem::directory_iterator(file.parent_path())) {
        if (entry.path().filename().string().starts_with(prefix)) copies.push_back(entry.path());
    }
    return copies;
}

}  // namespace vantrelle::testing
