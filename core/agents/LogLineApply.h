#pragma once

#include "agents/AISessionMeta.h"
#include "agents/LogFileState.h"
#include "agents/LogLineSink.h"
#include "agents/LogLines.h"

namespace vantrelle {

// Where a line's changes go: its file's state, its session record and the results of the read.
struct LineContext {
    LogFileState& state;
    AISessionMeta& meta;
    LineSink& sink;
    Date now;  // the date of a line that has none; a line dated over a day later is ignored
};

// The rules that turn what the readers gathered into events, prompts, titles and dates. The same for
// every build of the readers, so they live here once.
void applyClaude(const ClaudeLine& line, LineContext& context);
void applyCodex(const CodexLine& line, LineContext& context);
void applyGemini(const GeminiLine& line, LineContext& context);
void applyGeminiDocument(const GeminiDocument& document, LineContext& context);

}  // namespace vantrelle
