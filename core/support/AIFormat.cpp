#include "support/AIFormat.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "support/Saturating.h"

namespace vantrelle {

namespace {

// Negative and not-a-number count as 0; an endless duration is held at the largest count.
std::int64_t wholeSeconds(double seconds) {
    if (std::isnan(seconds) || seconds < 0) return 0;
    return saturatingCount(seconds);
}

}  // namespace

std::string AIFormat::tokens(std::int64_t n) {
    const auto d = static_cast<double>(n);
    if (n <= 999) return fmt::format("{}", n);
    if (n < 1'000'000) return fmt::format("{:.1f}k", d / 1000);
    if (n < 1'000'000'000) return fmt::format("{:.2f}M", d / 1'000'000);
    return fmt::format("{:.2f}B", d / 1'000'000'000);
}

std::string AIFormat::duration(double seconds) {
    const std::int64_t s = wholeSeconds(seconds);
    if (s < 3600) return fmt::format("{}m {:02d}s", s / 60, s % 60);
    return fmt::format("{}h {:02d}m", s / 3600, s % 3600 / 60);
}

std::string AIFormat::remaining(double seconds) {
    const std::int64_t s = wholeSeconds(seconds);
    if (s < 3600) return fmt::format("{}m", s / 60);
    return fmt::format("{}h {}m", s / 3600, s % 3600 / 60);
}

std::string AIFormat::cost(double dollars) {
    // A figure that isn't a number shows as nothing spent rather than as "nan".
    if (!std::isfinite(dollars)) dollars = 0;
    if (dollars >= 100) return fmt::format("${:.0f}", std::round(dollars));
    return fmt::format("${:.2f}", dollars);
}

}  // namespace vantrelle
