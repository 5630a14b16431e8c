#pragma once

#include <string>
#include <vector>

#include "agents/ClaudeHooks.h"

namespace vantrelle {

struct CommandResult {
    int status = 0;
    std::string out;
    std::string err;
};

// `vantrelle hooks status|install|uninstall [--statusline [--replace]] [--help]`: from a terminal,
// exactly what the panel's switches do, with their messages. Exit status 0 when done, 1 with the message
// when refused, 2 for arguments it doesn't know. `arguments` are what follows "hooks";
// `statusLineCommand` is what Claude Code is to run for the status line.
[[nodiscard]] CommandResult runHooksCommand(const std::vector<std::string>& arguments,
                                            const ClaudeHooks& hooks,
                                            const std::string& statusLineCommand = "vantrelle statusline");

}  // namespace vantrelle
