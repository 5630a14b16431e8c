#include "app/StatusMenu.h"

namespace vantrelle {

namespace {

StatusMenuRow command(std::string text, const std::function<void()>& action, std::string shortcut = {},
                      bool allowed = true) {
    return StatusMenuRow{false, std::move(text), std::move(shortcut), allowed && static_cast<bool>(action),
                         action};
}

StatusMenuRow divider() {
    return StatusMenuRow{true, {}, {}, false, {}};
}

}  // namespace

std::vector<StatusMenuRow> statusMenuRows(const StatusMenuCommands& c) {
    return {
        command("Open notch", c.openNotch),
        command("Start / pause focus timer", c.toggleFocusTimer),
        command("Your Wrapped…", c.showWrapped),
        command("Email Support…", c.emailSupport),
        divider(),
        c.updatesNote.empty() ? command("Check for Updates…", c.checkForUpdates, {}, c.canCheckForUpdates)
                              : command(c.updatesNote, {}),
        command("Settings…", c.showSettings, "Ctrl+,"),
        divider(),
        command("Quit Vantrelle", c.quit, "Ctrl+Q"),
    };
}

}  // namespace vantrelle
