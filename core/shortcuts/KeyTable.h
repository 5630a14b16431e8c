#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantrelle {

// One key both numberings know: the stored virtual key code, the X11 keysym and the name shown.
struct KeyRow {
    std::uint32_t keyCode;
    std::uint32_t keysym;
    std::string_view name;
    bool isFunctionKey;
};

[[nodiscard]] std::optional<KeyRow> keyByCode(std::uint32_t keyCode);
// Letters are found by either case.
[[nodiscard]] std::optional<KeyRow> keyBySym(std::uint32_t keysym);
// Shift, Control, Alt, Super and their kin: keys the recorder waits past.
[[nodiscard]] bool isModifierSym(std::uint32_t keysym);

// X11 modifier bits as the core protocol numbers them.
namespace XModifier {
inline constexpr std::uint16_t shift = 1;
inline constexpr std::uint16_t lock = 2;  // Caps Lock
inline constexpr std::uint16_t control = 4;
inline constexpr std::uint16_t mod1 = 8;   // Alt
inline constexpr std::uint16_t mod2 = 16;  // Num Lock on nearly every keymap
inline constexpr std::uint16_t mod4 = 64;  // Super
}  // namespace XModifier

// The stored modifier mask as X11 modifier bits; bits it doesn't know are dropped.
[[nodiscard]] std::uint16_t xModifiers(std::uint32_t comboModifiers);
// The same combo with every state of Caps Lock and Num Lock, since the server matches the mask exactly.
[[nodiscard]] std::array<std::uint16_t, 4> lockVariants(std::uint16_t xModifiers, std::uint16_t numLock);

// The combo in the freedesktop shortcut notation the global-shortcuts portal takes, e.g. "CTRL+ALT+k";
// empty for an unknown key code.
[[nodiscard]] std::string xdgTrigger(std::uint32_t keyCode, std::uint32_t comboModifiers);

}  // namespace vantrelle
