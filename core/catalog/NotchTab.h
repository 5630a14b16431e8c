#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "catalog/NotchTheme.h"
#include "support/RawEnum.h"

namespace vantrelle {

// The seventeen tools, in dock order.
enum class NotchTab {
    dashboard,
    today,
    tasks,
    reminders,
    notes,
    focus,
    aiUsage,
    devServers,
    menuBar,
    calc,
    music,
    shelf,
    screenTime,
    stats,
    mirror,
    game,
    support,
};

inline constexpr std::size_t kNotchTabCount = 17;

struct NotchTabInfo {
    std::string_view raw;
    std::string_view title;
    std::string_view icon;  // the symbol name; the shell maps it to its icon font
    std::string_view blurb;
    Color tint;
};

[[nodiscard]] const NotchTabInfo& info(NotchTab tab);
[[nodiscard]] inline std::string_view rawValue(NotchTab tab) {
    return info(tab).raw;
}
[[nodiscard]] std::optional<NotchTab> notchTabFromRaw(std::string_view raw);
[[nodiscard]] const std::array<NotchTab, kNotchTabCount>& allNotchTabs();

}  // namespace vantrelle
