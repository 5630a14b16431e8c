#pragma once

#include <filesystem>

#include "platform/Environment.h"

namespace vantrelle {

// `vantrelle --quit`: asks the running instance to end. 0 when it agreed, 1 when none runs. Runs
// without a display.
int runQuitCommand(int argc, char** argv);

// A launch while another instance runs: asks that one to open (the settings, with
// VANTRELLE_OPEN_SETTINGS) and reports whether it answered.
bool forwardLaunchToRunningInstance(const std::filesystem::path& folder, const Environment& environment);

// Where the lock and the socket of the running instance live.
[[nodiscard]] std::filesystem::path instanceFolder(const Environment& environment);

}  // namespace vantrelle
