#pragma once

// `vantrelle usage [--json] [--now <ISO 8601>] [--home <dir>]`: prints the agent usage figures and
// exits. Needs no display; runs before any Qt object exists. argv[1] is "usage".
int runUsageCommand(int argc, char** argv);
