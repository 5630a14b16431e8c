#pragma once

#include <cstdint>
#include <string>

#include "agents/AgentTool.h"
#include "platform/Date.h"
#include "support/Saturating.h"

namespace vantrelle {

// One billed model reply.
struct AIUsageEvent {
    Date timestamp;         // when the reply was logged; the moment of parsing if the line had no date
    std::string sessionId;  // the owning session: its log file's name without extension
    AgentTool tool = AgentTool::claudeCode;
    std::string model;        // as logged; may be empty for Claude Code
    std::int64_t input = 0;   // fresh input, cache reads not included
    std::int64_t output = 0;  // output (for Gemini output plus thoughts)
    std::int64_t cacheRead = 0;
    std::int64_t cacheWrite = 0;  // always 0 for Codex and Gemini

    // Every token figure shown means this sum, cache included; held at the top of the range.
    [[nodiscard]] std::int64_t totalTokens() const {
        return saturatingAdd(saturatingAdd(input, output), saturatingAdd(cacheRead, cacheWrite));
    }

    bool operator==(const AIUsageEvent&) const = default;
};

}  // namespace vantrelle
