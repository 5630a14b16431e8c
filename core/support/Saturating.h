#pragma once

#include <cstdint>
#include <limits>

namespace vantrelle {

// Token arithmetic on figures read from other programs' files: sums are held at the end of the range
// instead of overflowing, so no input can wrap a total negative or stop the process.

[[nodiscard]] inline std::int64_t saturatingAdd(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_add_overflow(a, b, &result)) {
        return b > 0 ? std::numeric_limits<std::int64_t>::max() : std::numeric_limits<std::int64_t>::min();
    }
    return result;
}

[[nodiscard]] inline std::int64_t saturatingSubtract(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_sub_overflow(a, b, &result)) {
        return b < 0 ? std::numeric_limits<std::int64_t>::max() : std::numeric_limits<std::int64_t>::min();
    }
    return result;
}

// A double as a count, held inside the range; not a number counts as 0.
[[nodiscard]] inline std::int64_t saturatingCount(double value) {
    if (!(value == value)) return 0;
    if (value >= 9223372036854775807.0) return std::numeric_limits<std::int64_t>::max();
    if (value <= -9223372036854775808.0) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(value);
}

}  // namespace vantrelle
