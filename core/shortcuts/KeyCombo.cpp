#include "shortcuts/KeyCombo.h"

#include <nlohmann/json.hpp>

#include "shortcuts/KeyTable.h"
#include "support/DebugLog.h"
#include "support/JsonDepth.h"

namespace vantrelle {

namespace {

std::uint32_t maskOf(const KeyPress& press) {
    std::uint32_t mask = 0;
    if (press.super) mask |= ComboModifier::super;
    if (press.shift) mask |= ComboModifier::shift;
    if (press.alt) mask |= ComboModifier::alt;
    if (press.ctrl) mask |= ComboModifier::ctrl;
    return mask;
}

std::string modifierText(std::uint32_t mask) {
    std::string text;
    if (mask & ComboModifier::ctrl) text += "Ctrl+";
    if (mask & ComboModifier::alt) text += "Alt+";
    if (mask & ComboModifier::shift) text += "Shift+";
    if (mask & ComboModifier::super) text += "Super+";
    return text;
}

std::optional<std::uint32_t> unsigned32(const nlohmann::json& value) {
    if (!value.is_number_unsigned()) return std::nullopt;
    const auto number = value.get<std::uint64_t>();
    if (number > 0xffffffffU) return std::nullopt;
    return static_cast<std::uint32_t>(number);
}

}  // namespace

RecordedKey recordKey(const KeyPress& press) {
    if (isModifierSym(press.keysym)) return {};
    const auto key = keyBySym(press.keysym);
    if (!key) return {std::nullopt, std::string(kUnknownKeyText)};
    if (!key->isFunctionKey && !press.ctrl && !press.alt && !press.super)
        return {std::nullopt, std::string(kNeedsModifierText)};
    const std::uint32_t mask = maskOf(press);
    return {KeyCombo{key->keyCode, mask, modifierText(mask) + std::string(key->name)}, {}};
}

std::optional<std::string> displayFor(std::uint32_t keyCode, std::uint32_t modifiers) {
    const auto key = keyByCode(keyCode);
    if (!key) return std::nullopt;
    return modifierText(modifiers) + std::string(key->name);
}

std::string encodeCombos(const ComboMap& combos) {
    auto json = nlohmann::json::object();
    for (const auto& [target, combo] : combos)
        json[target] = {
            {"keyCode", combo.keyCode}, {"modifiers", combo.modifiers}, {"display", combo.display}};
    return json.dump();
}

ComboMap decodeCombos(std::string_view text) {
    ComboMap combos;
    if (exceedsJsonDepth(text, kMaxJsonDepth)) {
        DebugLog::write("shortcuts: stored shortcuts nest too deep; none read");
        return combos;
    }
    const auto json = nlohmann::json::parse(text, nullptr, false);
    if (!json.is_object()) {
        DebugLog::write("shortcuts: stored shortcuts are not a JSON object; none read");
        return combos;
    }
    for (const auto& [target, entry] : json.items()) {
        const auto keyCode =
            entry.is_object() && entry.contains("keyCode") ? unsigned32(entry["keyCode"]) : std::nullopt;
        const auto modifiers =
            entry.is_object() && entry.contains("modifiers") ? unsigned32(entry["modifiers"]) : std::nullopt;
        const auto display = entry.is_object() ? entry.find("display") : entry.end();
        if (!keyCode || !modifiers || display == entry.end() || !display->is_string()) {
            DebugLog::write(
                [&tool = target] { return "shortcuts: skipped an unreadable shortcut for " + tool; });
            continue;
        }
        combos[target] = KeyCombo{*keyCode, *modifiers, display->get<std::string>()};
    }
    return combos;
}

}  // namespace vantrelle
