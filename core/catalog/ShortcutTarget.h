#pragma once

#include <optional>
#include <string_view>

#include "catalog/NotchTab.h"

namespace vantrelle {

// What a global shortcut opens: one tool, or the whole notch.
struct ShortcutTarget {
    std::optional<NotchTab> tool;  // absent: the notch itself

    [[nodiscard]] static ShortcutTarget notch() { return {}; }
    [[nodiscard]] static ShortcutTarget forTool(NotchTab tab) { return {tab}; }
    // The tab's raw name, or "notch".
    [[nodiscard]] std::string_view key() const { return tool ? rawValue(*tool) : "notch"; }

    bool operator==(const ShortcutTarget&) const = default;
};

}  // namespace vantrelle
