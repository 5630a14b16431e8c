#include "agents/HooksCommand.h"

namespace vantrelle {

namespace {

std::string usage(const ClaudeHooks& hooks) {
    return "usage: vantrelle hooks status|install|uninstall [--statusline [--replace]]\n"
           "  status     tells whether Claude Code's settings hold the hooks that make the notch flash\n"
           "  install    adds them, after a backup of the settings as they were\n"
           "  uninstall  removes them\n"
           "  --statusline  the same for Claude Code's status line (`vantrelle statusline`) instead;\n"
           "                a status line of your own is kept unless --replace is given\n"
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

CommandResult statusLineStatus(const ClaudeHooks& hooks) {
    const auto status = hooks.statusLineStatus();
    if (status.problem) return refused(*status.problem);
    const std::string file = hooks.settingsFile().string();
    switch (status.state) {
        case ClaudeStatusLine::ours:
            return {0, "Vantrelle's status line is installed in " + file + ".\n", {}};
        case ClaudeStatusLine::foreign:
            return {0,
                    "Claude Code shows a status line of your own (\"" + status.command + "\"), set in " +
                        file + ".\n",
                    {}};
        case ClaudeStatusLine::none:
            break;
    }
    return {0, "Vantrelle's status line is not installed in " + file + ".\n", {}};
}

CommandResult setStatusLine(const ClaudeHooks& hooks, bool installed, bool replace,
                            const std::string& command) {
    const auto before = hooks.statusLineStatus().state;
    const auto failure = installed ? hooks.installStatusLine(command, replace) : hooks.uninstallStatusLine();
    if (failure) {
        std::string message = *failure;
        if (installed && before == ClaudeStatusLine::foreign && !replace)
            message += " Add --replace to put Vantrelle's in its place.";
        return refused(std::move(message));
    }
    const std::string file = hooks.settingsFile().string();
    if (!installed) {
        return {0,
                before == ClaudeStatusLine::ours
                    ? "Vantrelle's status line removed from " + file + ".\n"
                    : "Vantrelle's status line isn't installed in " + file + "; nothing to remove.\n",
                {}};
    }
    return {0, "Vantrelle's status line installed in " + file + ".\n", {}};
}

}  // namespace

CommandResult runHooksCommand(const std::vector<std::string>& arguments, const ClaudeHooks& hooks,
                              const std::string& statusLineCommand) {
    const bool statusLine = arguments.size() >= 2 && arguments[1] == "--statusline";
    const bool replace = statusLine && arguments.size() == 3 && arguments[2] == "--replace";
    if (statusLine && (arguments.size() == 2 || (replace && arguments[0] == "install"))) {
        const std::string& verb = arguments.front();
        if (verb == "status") return statusLineStatus(hooks);
        if (verb == "install") return setStatusLine(hooks, true, replace, statusLineCommand);
        if (verb == "uninstall") return setStatusLine(hooks, false, false, statusLineCommand);
    }
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
