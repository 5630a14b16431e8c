#include "shortcuts/KeyTable.h"

#include <algorithm>

#include "shortcuts/KeyCombo.h"

namespace vantrelle {

namespace {

// The stored codes are those of the classic ANSI keyboard layout; keysyms are X11's.
constexpr KeyRow kKeys[] = {
    {0, 'a', "A", false},
    {11, 'b', "B", false},
    {8, 'c', "C", false},
    {2, 'd', "D", false},
    {14, 'e', "E", false},
    {3, 'f', "F", false},
    {5, 'g', "G", false},
    {4, 'h', "H", false},
    {34, 'i', "I", false},
    {38, 'j', "J", false},
    {40, 'k', "K", false},
    {37, 'l', "L", false},
    {46, 'm', "M", false},
    {45, 'n', "N", false},
    {31, 'o', "O", false},
    {35, 'p', "P", false},
    {12, 'q', "Q", false},
    {15, 'r', "R", false},
    {1, 's', "S", false},
    {17, 't', "T", false},
    {32, 'u', "U", false},
    {9, 'v', "V", false},
    {13, 'w', "W", false},
    {7, 'x', "X", false},
    {16, 'y', "Y", false},
    {6, 'z', "Z", false},
    {29, '0', "0", false},
    {18, '1', "1", false},
    {19, '2', "2", false},
    {20, '3', "3", false},
    {21, '4', "4", false},
    {23, '5', "5", false},
    {22, '6', "6", false},
    {26, '7', "7", false},
    {28, '8', "8", false},
    {25, '9', "9", false},
    {24, '=', "=", false},
    {27, '-', "-", false},
    {30, ']', "]", false},
    {33, '[', "[", false},
    {39, '\'', "'", false},
    {41, ';', ";", false},
    {42, '\\', "\\", false},
    {43, ',', ",", false},
    {44, '/', "/", false},
    {47, '.', ".", false},
    {50, '`', "`", false},
    // Function keys.
    {122, 0xffbe, "F1", true},
    {120, 0xffbf, "F2", true},
    {99, 0xffc0, "F3", true},
    {118, 0xffc1, "F4", true},
    {96, 0xffc2, "F5", true},
    {97, 0xffc3, "F6", true},
    {98, 0xffc4, "F7", true},
    {100, 0xffc5, "F8", true},
    {101, 0xffc6, "F9", true},
    {109, 0xffc7, "F10", true},
    {103, 0xffc8, "F11", true},
    {111, 0xffc9, "F12", true},
    {105, 0xffca, "F13", true},
    {107, 0xffcb, "F14", true},
    {113, 0xffcc, "F15", true},
    // Keys with names rather than characters.
    {49, ' ', "Space", false},
    {36, 0xff0d, "Return", false},
    {48, 0xff09, "Tab", false},
    {123, 0xff51, "Left", false},
    {124, 0xff53, "Right", false},
    {125, 0xff54, "Down", false},
    {126, 0xff52, "Up", false},
    {51, 0xff08, "Backspace", false},
    {117, 0xffff, "Delete", false},
    {115, 0xff50, "Home", false},
    {119, 0xff57, "End", false},
    {116, 0xff55, "Page Up", false},
    {121, 0xff56, "Page Down", false},
};

}  // namespace

std::optional<KeyRow> keyByCode(std::uint32_t keyCode) {
    const auto* row = std::find_if(std::begin(kKeys), std::end(kKeys),
                                   [keyCode](const KeyRow& key) { return key.keyCode == keyCode; });
    if (row == std::end(kKeys)) return std::nullopt;
    return *row;
}

std::optional<KeyRow> keyBySym(std::uint32_t keysym) {
    if (keysym >= 'A' && keysym <= 'Z') keysym += 'a' - 'A';
    const auto* row = std::find_if(std::begin(kKeys), std::end(kKeys),
                                   [keysym](const KeyRow& key) { return key.keysym == keysym; });
    if (row == std::end(kKeys)) return std::nullopt;
    return *row;
}

bool isModifierSym(std::uint32_t keysym) {
    // Shift_L through Hyper_R, and the ISO level shifts.
    return (keysym >= 0xffe1 && keysym <= 0xffee) || (keysym >= 0xfe01 && keysym <= 0xfe13) ||
           keysym == 0xff7f;  // Num_Lock
}

std::uint16_t xModifiers(std::uint32_t comboModifiers) {
    std::uint16_t mask = 0;
    if (comboModifiers & ComboModifier::shift) mask |= XModifier::shift;
    if (comboModifiers & ComboModifier::ctrl) mask |= XModifier::control;
    if (comboModifiers & ComboModifier::alt) mask |= XModifier::mod1;
    if (comboModifiers & ComboModifier::super) mask |= XModifier::mod4;
    return mask;
}

std::array<std::uint16_t, 4> lockVariants(std::uint16_t xModifiers, std::uint16_t numLock) {
    const auto lock = XModifier::lock;
    return {xModifiers, static_cast<std::uint16_t>(xModifiers | lock),
            static_cast<std::uint16_t>(xModifiers | numLock),
            static_cast<std::uint16_t>(xModifiers | lock | numLock)};
}

std::string xdgTrigger(std::uint32_t keyCode, std::uint32_t comboModifiers) {
    const auto key = keyByCode(keyCode);
    if (!key) return {};
    std::string name;
    switch (key->keysym) {
        case ' ':
            name = "space";
            break;
        case '=':
            name = "equal";
            break;
        case '-':
            name = "minus";
            break;
        case ']':
            name = "bracketright";
            break;
        case '[':
            name = "bracketleft";
            break;
        case '\'':
            name = "apostrophe";
            break;
        case ';':
            name = "semicolon";
            break;
        case '\\':
            name = "backslash";
            break;
        case ',':
            name = "comma";
            break;
        case '/':
            name = "slash";
            break;
        case '.':
            name = "period";
            break;
        case '`':
            name = "grave";
            break;
        case 0xff08:
            name = "BackSpace";
            break;
        case 0xff55:
            name = "Page_Up";
            break;
        case 0xff56:
            name = "Page_Down";
            break;
        default:
            // Letters and digits are their own keysym names, as are F1 to F15 and the other named keys.
            name =
                key->keysym < 0x80 ? std::string(1, static_cast<char>(key->keysym)) : std::string(key->name);
    }
    std::string trigger;
    if (comboModifiers & ComboModifier::ctrl) trigger += "CTRL+";
    if (comboModifiers & ComboModifier::alt) trigger += "ALT+";
    if (comboModifiers & ComboModifier::shift) trigger += "SHIFT+";
    if (comboModifiers & ComboModifier::super) trigger += "LOGO+";
    return trigger + name;
}

}  // namespace vantrelle
