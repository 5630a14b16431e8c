#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "agents/AIUsageEvent.h"
#include "platform/Date.h"

namespace vantrelle {

// The last cumulative token totals of a Codex session log.
struct CodexTotals {
    std::int64_t input = 0;
    std::int64_t output = 0;
    std::int64_t cached = 0;
};

// What the scanner keeps per log file, under its full path.
struct LogFileState {
    // The byte after the last line read whole: after its line feed, or after the file's last bytes if
    // they already held a whole JSON object. An unfinished last line lies behind the offset and is
    // read again, whole, once more bytes arrive.
    std::uint64_t offset = 0;
    std::uint64_t readEnd = 0;      // the file's end at the last read: the same size means nothing new
    bool skippingLongLine = false;  // the offset is inside a line over the limit, skipped to its line feed
    std::optional<CodexTotals> codexLastTotal;
    std::map<std::string, AIUsageEvent, std::less<>> geminiEvents;  // by message id
    std::optional<Date> jsonModified;  // of a whole-file Gemini log at its last parse
    std::optional<Date> jsonBroken;    // of a whole-file Gemini log that didn't parse: not tried again
    std::string sessionId;
    std::uint32_t id = 0;              // names the file among the Claude Code replies it holds
    std::uint64_t scanGeneration = 0;  // the last scan that listed the file
    std::uint8_t loggedProblems = 0;   // kinds of problem already written to the debug log for this file
    bool unreadable = false;           // counted as unreadable; counted again only after a good read
};

}  // namespace vantrelle
