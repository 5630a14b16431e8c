#include "HooksCommand.h"

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "agents/HooksCommand.h"
#include "platform/Environment.h"

namespace {

// This very program, by the path Claude Code's shell can run it from.
std::string statusLineCommand() {
    std::error_code error;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error || self.empty()) return "vantrelle statusline";
    std::string quoted = "\"";
    for (char c : self.string()) {
        if (c == '"' || c == '\\' || c == '`' || c == '$') quoted += '\\';
        quoted += c;
    }
    // A plain path needs no quotes, and reads better in the user's settings.
    const bool plain = self.string().find_first_of(" \t\"'\\`$;&|<>()*?[]#~") == std::string::npos;
    return (plain ? self.string() : quoted + "\"") + " statusline";
}

}  // namespace

int runHooksCommand(int argc, char** argv) {
    auto& environment = vantrelle::ProcessEnvironment::shared();
    const vantrelle::ClaudeHooks hooks(vantrelle::AppPaths::fromEnvironment(environment), environment);
    const auto result = vantrelle::runHooksCommand(std::vector<std::string>(argv + 2, argv + argc), hooks,
                                                   statusLineCommand());
    std::fwrite(result.out.data(), 1, result.out.size(), stdout);
    std::fwrite(result.err.data(), 1, result.err.size(), stderr);
    return result.status;
}
