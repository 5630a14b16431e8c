#include "agents/HooksCommand.h"

namespace vantrelle {

namespace {

std::string usage(const ClaudeHooks& hooks) {
    return "usage: vantrelle hooks status|install|uninstall\n"
           "  status     tells whether Claude Code's settings hold the hooks that make the notch flash\n"
           "  install    adds them, after a backup of the settings as they were\n"
           "  uninstall  removes them\n"
           "Claude Code's settings: " +
           hooks.settingsFile().string() + " (VANTRELLE_CLAUDE_SETTINGS names another file)\n";
}

CommandResult refused(std::string message) {
    return {1, {}, std::move(message) + "\n"};
}

CommandResult status(const ClaudeHooks& hooks) {
    const auto status = hooks.status();
    if (status.problem) return refused(*status.problem);
    return {0,
            std::string("Claude Code hooks are ") + (status.installed ? "" : "not ") + "installed in " +
                hooks.settingsFile().string() + ".\n",
            {}};
}

CommandResult setInstalled(const ClaudeHooks& hooks, bool installed) {
    const bool before = hooks.isInstalled();
    if (auto failure = hooks.setInstalled(installed)) return refused(std::move(*failure));
    const std::string file = hooks.settingsFile().string();
    if (before == installed) {
        return {0,
                installed ? "Claude Code hooks are already installed in " + file + ".\n"
                          : "Claude Code hooks aren't installed in " + file + "; nothing to remove.\n",
                {}};
    }
    return {0,
            installed ? "Claude Code hooks installed in " + file + ".\n"
                      : "Claude Code hooks removed from " + file + ".\n",
            {}};
}

}  // namespace

CommandResult runHooksCommand(const std::vector<std::string>& arguments, const ClaudeHooks& hooks) {
    if (arguments.size() == 1) {
        const std::string& verb = arguments.front();
        if (verb == "--help" || verb == "-h" || verb == "help") return {0, usage(hooks), {}};
        if (verb == "status") return status(hooks);
        if (verb == "install") return setInstalled(hooks, true);
        if (verb == "uninstall") return setInstalled(hooks, false);
    }
    const std::string problem =
        arguments.empty() ? "say what to do" : "unknown argument \"" + arguments.back() + "\"";
    return {2, {}, "vantrelle hooks: " + problem + "\n" + usage(hooks)};
}

}  // namespace vantrelle
