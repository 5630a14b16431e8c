#pragma once

namespace vantrelle {

// `vantrelle usage blocks --live`: the open 5-hour window on the terminal's alternate screen, redrawn
// each time the running app writes new figures (and when the terminal is resized), never on a timer.
// Ctrl-C, a hang-up or a termination signal gives the terminal back as it was. Not on a terminal: the
// screen once.
int runLiveBlocks(bool colour);

}  // namespace vantrelle
