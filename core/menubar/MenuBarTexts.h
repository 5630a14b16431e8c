#pragma once

#include <string_view>

namespace vantrelle::MenuBarTexts {

// The Menu Bar tool's words.
inline constexpr std::string_view kNothingHidden = "Nothing hidden behind the notch";
inline constexpr std::string_view kNoIcons = "No menu bar icons found";
inline constexpr std::string_view kNoIconsDetail = "Apps that add icons to the menu bar show up here.";
inline constexpr std::string_view kHiddenHeading = "Hidden behind the notch";
inline constexpr std::string_view kVisibleHeading = "In your menu bar";
inline constexpr std::string_view kNoWatcher = "no tray watcher on this desktop";
inline constexpr std::string_view kNoWatcherDetail =
    "Tray icons reach this tool through a StatusNotifierItem watcher. KDE Plasma has one; on GNOME the "
    "AppIndicator extension adds it.";
inline constexpr std::string_view kCheckAgain = "Check again";

}  // namespace vantrelle::MenuBarTexts
