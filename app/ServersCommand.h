#pragma once

// `vantrelle servers [--json]`: prints the local development servers and exits. Needs no display.
// argv[1] is "servers".
int runServersCommand(int argc, char** argv);
