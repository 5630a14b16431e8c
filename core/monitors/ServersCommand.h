#pragma once

#include <string>
#include <vector>

#include "monitors/DevServerMonitor.h"

namespace vantrelle {

// What a command-line report prints and how it ends.
struct CommandOutput {
    int status = 0;
    std::string out;
    std::string err;
};

// `vantrelle servers [--json]`: the development servers as the Dev Servers view lists them, from one
// scan of `monitor`. `arguments` are what follows "servers". Exit status 2 for unknown arguments.
[[nodiscard]] CommandOutput runServersCommand(const std::vector<std::string>& arguments,
                                              DevServerMonitor& monitor);

}  // namespace vantrelle
