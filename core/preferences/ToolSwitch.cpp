#include "preferences/ToolSwitch.h"

#include <fmt/format.h>

namespace vantrelle {

ToolSwitchOutcome switchTool(AppSettings& settings, NotchTab tab, bool on) {
    // Refused even when a stored list left it out: the switch must never read as done.
    if (tab == NotchTab::dashboard && !on)
        return {false, "The Dashboard stays on: it is where the panel opens."};
    settings.setEnabled(tab, on);
    if (settings.isEnabled(tab) == on) {
        if (!on && AppSettings::isRestoredAtLaunch(tab))
            return {true, fmt::format("{} comes back at the next start.", info(tab).title)};
        return {true, {}};
    }
    // Only a switch-off can be refused: the settings keep at least one tool.
    return {false,
            fmt::format("{} is the last tool that is on; turn another one on first.", info(tab).title)};
}

}  // namespace vantrelle
