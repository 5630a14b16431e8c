#pragma once

#include <cstdint>

namespace vantrelle {

// Stops the process on a broken invariant of the log arithmetic (an offset or a token delta that
// can't be represented). The fuzz driver installs a handler that unwinds instead.
using FatalHandler = void (*)(const char* what);

[[noreturn]] void agentsFatal(const char* what);
void setAgentsFatalHandler(FatalHandler handler);

// a - b, or a fatal stop if the result doesn't fit.
[[nodiscard]] inline std::int64_t checkedSubtract(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_sub_overflow(a, b, &result)) agentsFatal("aiusage: token delta overflows");
    return result;
}

// a + b, held at the nearest end of the range instead of overflowing.
[[nodiscard]] inline std::int64_t saturatingAdd(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_add_overflow(a, b, &result)) return b > 0 ? INT64_MAX : INT64_MIN;
    return result;
}

// a - b, held at the nearest end of the range instead of overflowing.
[[nodiscard]] inline std::int64_t saturatingSubtract(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    if (__builtin_sub_overflow(a, b, &result)) return b < 0 ? INT64_MAX : INT64_MIN;
    return result;
}

}  // namespace vantrelle
