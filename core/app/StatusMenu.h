#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vantrelle {

// One row of the tray menu: a divider, or a command with its text, shortcut and enabled state.
struct StatusMenuRow {
    bool isDivider = false;
    std::string text;
    std::string shortcut;  // in the platform's notation, e.g. "Ctrl+Q"; empty for none
    bool enabled = true;
    std::function<void()> action;
};

// What the tray menu can do; a command that is not there leaves its row disabled.
struct StatusMenuCommands {
    std::function<void()> openNotch;
    std::function<void()> toggleFocusTimer;
    std::function<void()> showWrapped;
    std::function<void()> emailSupport;
    std::function<void()> checkForUpdates;
    std::function<void()> showSettings;
    std::function<void()> quit;
    // Updates can be looked for only where an updater exists or the build can tell its own version.
    bool canCheckForUpdates = false;
    // When set, the updates row says this instead and is disabled: another program brings updates.
    std::string updatesNote;
};

inline constexpr const char* kStatusItemTitle = "Vantrelle";
inline constexpr const char* kStatusItemSymbol = "rectangle.topthird.inset.filled";

[[nodiscard]] std::vector<StatusMenuRow> statusMenuRows(const StatusMenuCommands& commands);

}  // namespace vantrelle
