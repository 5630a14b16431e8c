#include "catalog/QuickToggle.h"

#include "support/RawEnum.h"

namespace vantrelle {

namespace {

constexpr std::array<QuickToggleInfo, kQuickToggleCount> kToggles{{
    {"darkMode", "Dark mode", "Switch the system appearance.", true},
    {"keepAwake", "Keep awake", "Stop the Mac sleeping while something long is running.", true},
    {"mute", "Mute audio", "Silence output before a call starts.", true},
    {"screenshot", "Screenshot to clipboard", "Drag a region straight to the clipboard.", false},
    {"screenshotToFile", "Screenshot to Desktop", "Drag a region and save it to the Desktop.", false},
    {"sleepDisplay", "Sleep the display", "Turn the screen off without locking.", false},
    {"lockScreen", "Lock screen", "Lock straight to the login window.", false},
    {"hideDesktopIcons", "Hide desktop icons", "Clear the desktop before you share your screen.", true},
    {"showHiddenFiles", "Show hidden files", "Reveal dotfiles in Finder.", true},
    {"dockAutohide", "Auto-hide the Dock", "Get the Dock out of the way for a recording.", true},
    {"ejectDisks", "Eject all disks", "Unmount every external disk at once.", false},
    {"emptyTrash", "Empty Trash", "Empty the Trash without opening Finder.", false},
}};

constexpr auto kRawNames = [] {
    std::array<std::string_view, kQuickToggleCount> names{};
    for (std::size_t i = 0; i < kQuickToggleCount; ++i) names[i] = kToggles[i].raw;
    return names;
}();

}  // namespace

const QuickToggleInfo& info(QuickToggle toggle) {
    return kToggles[static_cast<std::size_t>(toggle)];
}

std::optional<QuickToggle> quickToggleFromRaw(std::string_view raw) {
    return enumFromRaw<QuickToggle>(kRawNames, raw);
}

std::vector<QuickToggle> defaultVisibleToggles() {
    using enum QuickToggle;
    return {darkMode,         keepAwake,       mute,       screenshot, sleepDisplay, lockScreen,
            hideDesktopIcons, showHiddenFiles, ejectDisks, emptyTrash};
}

}  // namespace vantrelle
