#pragma once

// `vantrelle servers [--json]`, `vantrelle screentime [--json] [--day YYYY-MM-DD]` and
// `vantrelle wrapped [--period …] [--json] [--png FILE]`: reports for terminal users from the same code
// as the views. They need no display; argv[1] names the command.
int runServersCommand(int argc, char** argv);
int runScreenTimeCommand(int argc, char** argv);
int runWrappedCommand(int argc, char** argv);
