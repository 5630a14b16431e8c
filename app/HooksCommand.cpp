#include "HooksCommand.h"

#include <cstdio>
#include <string>
#include <vector>

#include "StatusLineCommand.h"
#include "agents/HooksCommand.h"
#include "platform/Environment.h"

int runHooksCommand(int argc, char** argv) {
    auto& environment = vantrelle::ProcessEnvironment::shared();
    const vantrelle::ClaudeHooks hooks(vantrelle::AppPaths::fromEnvironment(environment), environment);
    const auto result = vantrelle::runHooksCommand(std::vector<std::string>(argv + 2, argv + argc), hooks,
                                                   vantrelle::statusLineCommandForClaude());
    std::fwrite(result.out.data(), 1, result.out.size(), stdout);
    std::fwrite(result.err.data(), 1, result.err.size(), stderr);
    return result.status;
}
