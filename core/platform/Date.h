#pragma once

#include <compare>

namespace vantrelle {

// A point in wall-clock time: seconds since the Unix epoch, in double precision.
// Durations are plain doubles in seconds, so `date + 12.0` is twelve seconds later.
struct Date {
    double seconds = 0;

    // Stands in for "no date known"; older than anything a file system reports.
    static constexpr Date distantPast() { return Date{-62135596800.0}; }

    constexpr Date operator+(double delta) const { return Date{seconds + delta}; }
    constexpr Date operator-(double delta) const { return Date{seconds - delta}; }
    constexpr double operator-(Date other) const { return seconds - other.seconds; }
    // NOLINTNEXTLINE(modernize-use-nullptr): clang-tidy 14 misreads a defaulted comparison
    constexpr auto operator<=>(const Date&) const = default;
};

}  // namespace vantrelle
