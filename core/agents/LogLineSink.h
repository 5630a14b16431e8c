#pragma once

#include <string>
#include <vector>

#include "agents/AIUsageEvent.h"
#include "agents/LogProblems.h"

namespace vantrelle {

// One line of a Claude Code reply. A streamed reply comes as several lines under one key, and a
// resumed session copies replies into its own log, so lines are gathered across all logs by key
// before they become events (ClaudeReplies).
struct ClaudeSighting {
    std::string key;  // message id "|" request id (or uuid); empty when the line has neither
    AIUsageEvent event;
};

// What reading one file produced, apart from its own state and session record: files can so be read
// on several threads and their results merged in file order.
struct LineSink {
    std::vector<AIUsageEvent> events;  // Codex replies
    std::vector<ClaudeSighting> claudeReplies;
    LogProblems problems;
};

}  // namespace vantrelle
