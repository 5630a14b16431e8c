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

}  // namespace vantrelle::testing
