#pragma once

// `vantrelle statusline [--format <template>]`: the line Claude Code shows under its prompt, from the
// JSON it writes on standard input. Always one line and status 0, whatever the input. Needs no display;
// runs before any Qt object exists. argv[1] is "statusline".
int runStatusLineCommand(int argc, char** argv);

#include <string>

namespace vantrelle {

// What Claude Code's settings are to run: this very program, by its full path, with "statusline".
[[nodiscard]] std::string statusLineCommandForClaude();

}  // namespace vantrelle
