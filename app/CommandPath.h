#pragma once

#include <string>

namespace vantrelle {

// The `vantrelle` command hands everything but its quick answers to the shell program; it tells the
// shell where it is, so what the shell writes for later (the autostart entry, Claude Code's status line)
// runs the command the user knows.
inline constexpr const char* kCommandPathVariable = "VANTRELLE_COMMAND";

// The `vantrelle` command by its full path: the one that handed over to this process, else this program.
// Empty when neither can be told.
[[nodiscard]] std::string commandPath();

}  // namespace vantrelle
