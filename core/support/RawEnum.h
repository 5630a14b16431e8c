#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace vantrelle {

// Closed sets are enumerations numbered 0..N-1 in declaration order, with their stored raw strings
// in an array of the same order.
template <typename E, std::size_t N>
[[nodiscard]] constexpr std::optional<E> enumFromRaw(const std::array<std::string_view, N>& rawNames,
                                                     std::string_view raw) {
    for (std::size_t i = 0; i < N; ++i) {
        if (rawNames[i] == raw) return static_cast<E>(i);
    }
    return std::nullopt;
}

template <typename E, std::size_t N>
[[nodiscard]] constexpr std::string_view enumToRaw(const std::array<std::string_view, N>& rawNames, E value) {
    return rawNames[static_cast<std::size_t>(value)];
}

// All cases of such an enumeration, in declaration order.
template <typename E, std::size_t N>
[[nodiscard]] constexpr std::array<E, N> allCasesOf() {
    std::array<E, N> cases{};
    for (std::size_t i = 0; i < N; ++i) cases[i] = static_cast<E>(i);
    return cases;
}

}  // namespace vantrelle
