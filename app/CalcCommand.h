#pragma once

// `vantrelle calc [--json] [--offline] ["<expression>"]`: the calculator in a terminal, answering as the
// panel does. Without an expression it reads lines from standard input, one answer per line, each line's
// "ans" the answer before it. Exit status 1 if any line failed, 2 for bad arguments. No display needed.
int runCalcCommand(int argc, char** argv);
