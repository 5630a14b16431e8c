#pragma once

#include <cstdint>

namespace vantrelle {

struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    constexpr bool operator==(const Color&) const = default;
};

// A spring animation: how long it takes to settle, and how much it overshoots (1 = none).
struct Spring {
    double response = 0;
    double dampingFraction = 0;
    constexpr bool operator==(const Spring&) const = default;
};

// The named colours and animations of the shell.
namespace NotchTheme {
inline constexpr Color label{0xF5, 0xF5, 0xF7};
inline constexpr Color positive{0x34, 0xC7, 0x59};
inline constexpr Color negative{0xFF, 0x45, 0x3A};
inline constexpr Color blue{0x0A, 0x84, 0xFF};
inline constexpr Color orange{0xFF, 0x9F, 0x0A};
inline constexpr Color purple{0xBF, 0x5A, 0xF2};
inline constexpr Color teal{0x40, 0xC8, 0xE0};
inline constexpr Color gold{0xFF, 0xD6, 0x0A};

inline constexpr Spring morph{0.45, 0.78};
inline constexpr Spring snappy{0.28, 0.82};
inline constexpr Spring content{0.36, 0.86};
inline constexpr Spring bouncy{0.5, 0.68};
}  // namespace NotchTheme

}  // namespace vantrelle
