#pragma once

#include <string>

#include "catalog/AppSettings.h"

namespace vantrelle {

// What became of a request to turn a tool on or off, and a sentence for the user when it needs one.
struct ToolSwitchOutcome {
    bool applied = false;
    std::string note;  // empty when there is nothing to say
};

// Turns a tool on or off through the settings' own rules. A refused change says why; a tool that every
// launch turns back on says so when it is turned off.
[[nodiscard]] ToolSwitchOutcome switchTool(AppSettings& settings, NotchTab tab, bool on);

}  // namespace vantrelle
