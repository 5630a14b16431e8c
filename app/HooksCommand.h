#pragma once

// `vantrelle hooks status|install|uninstall`: the panel's switch for the Claude Code hooks, from a
// terminal. Needs no display; runs before any Qt object exists. argv[1] is "hooks".
int runHooksCommand(int argc, char** argv);
