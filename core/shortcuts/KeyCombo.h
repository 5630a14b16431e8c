#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace vantrelle {

// A global shortcut as stored in the settings: a virtual key code and a modifier mask in the classic
// desktop-neutral numbering (so a settings file moves between machines), plus the text the settings
// page shows. KeyTable translates both to this desktop's keys.
struct KeyCombo {
    std::uint32_t keyCode = 0;
    std::uint32_t modifiers = 0;
    std::string display;

    bool operator==(const KeyCombo&) const = default;
};

// The stored modifier mask.
namespace ComboModifier {
inline constexpr std::uint32_t super = 256;  // the "command" bit
inline constexpr std::uint32_t shift = 512;
inline constexpr std::uint32_t alt = 2048;  // the "option" bit
inline constexpr std::uint32_t ctrl = 4096;
inline constexpr std::uint32_t all = super | shift | alt | ctrl;
}  // namespace ComboModifier

// A key pressed in the shortcut recorder: the key's X11 keysym (the toolkit's key mapped to it) and the
// modifiers held.
struct KeyPress {
    std::uint32_t keysym = 0;
    bool ctrl = false;
    bool alt = false;
    bool shift = false;
    bool super = false;
};

// What the recorder makes of a key press: a combo, or why not. Neither means "keep listening" (a
// modifier on its own was pressed).
struct RecordedKey {
    std::optional<KeyCombo> combo;
    std::string refusal;
};

inline constexpr std::string_view kNeedsModifierText = "Add Ctrl, Alt or Super";
inline constexpr std::string_view kUnknownKeyText = "This key can't be a shortcut";
// The settings rows: a row without a combo, a row listening for keys, a row whose combo was refused.
inline constexpr std::string_view kRecordText = "Record Shortcut";
inline constexpr std::string_view kRecordingText = "Type a shortcut";
inline constexpr std::string_view kTakenText = "Taken by another app";

// The recorder's rules: a function key stands alone; any other key needs Ctrl, Alt or Super (Shift
// alone isn't enough). The display names the modifiers in the order Ctrl, Alt, Shift, Super.
[[nodiscard]] RecordedKey recordKey(const KeyPress& press);
// The display of a stored combo, rebuilt from its codes; absent when the key code is unknown.
[[nodiscard]] std::optional<std::string> displayFor(std::uint32_t keyCode, std::uint32_t modifiers);

using ComboMap = std::map<std::string, KeyCombo, std::less<>>;

// The JSON form of the whole map, target key -> {"keyCode", "modifiers", "display"}.
[[nodiscard]] std::string encodeCombos(const ComboMap& combos);
// Undecodable text gives an empty map; an undecodable entry is left out. Both are logged.
[[nodiscard]] ComboMap decodeCombos(std::string_view json);

}  // namespace vantrelle
