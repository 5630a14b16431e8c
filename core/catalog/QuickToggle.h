#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <vector>

namespace vantrelle {

// The one-tap system switches and actions of the Dashboard.
enum class QuickToggle {
    darkMode,
    keepAwake,
    mute,
    screenshot,
    screenshotToFile,
    sleepDisplay,
    lockScreen,
    hideDesktopIcons,
    showHiddenFiles,
    dockAutohide,
    ejectDisks,
    emptyTrash,
};

inline constexpr std::size_t kQuickToggleCount = 12;

struct QuickToggleInfo {
    std::string_view raw;
    std::string_view title;
    std::string_view blurb;
    bool isState;  // a switch with an on/off state, rather than a one-off action
};

[[nodiscard]] const QuickToggleInfo& info(QuickToggle toggle);
[[nodiscard]] inline std::string_view rawValue(QuickToggle toggle) {
    return info(toggle).raw;
}
[[nodiscard]] std::optional<QuickToggle> quickToggleFromRaw(std::string_view raw);
// The ten shown until the user picks.
[[nodiscard]] std::vector<QuickToggle> defaultVisibleToggles();

}  // namespace vantrelle
