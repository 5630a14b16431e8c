#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "agents/AgentTool.h"
#include "platform/Date.h"

namespace vantrelle {

// Today's figures.
struct AITotals {
    std::int64_t input = 0;
    std::int64_t output = 0;
    std::int64_t cacheRead = 0;
    std::int64_t cacheWrite = 0;
    double cost = 0;
    std::int64_t messages = 0;  // events
    std::int64_t sessions = 0;  // distinct session ids
    bool operator==(const AITotals&) const = default;
};

// One local calendar day; identified by its date.
struct AIDayTotals {
    Date date;  // the local start of the day
    std::int64_t tokens = 0;
    double cost = 0;
    bool operator==(const AIDayTotals&) const = default;
};

// How long a usage window lasts from its start.
inline constexpr double kBlockSeconds = 5 * 60 * 60;

// One 5-hour usage window.
struct AIBlockUsage {
    Date start;  // floored to the hour of the first event
    std::int64_t tokens = 0;
    double cost = 0;
    Date lastActivity;
    std::int64_t budget = 0;
    double burnTokensPerMinute = 0;
    std::int64_t projectedTokens = 0;
    bool operator==(const AIBlockUsage&) const = default;
};

// One agent session as listed; identified by `id`.
struct AgentSession {
    enum class State { running, waiting, done };

    std::string id;
    AgentTool tool = AgentTool::claudeCode;
    std::string projectName;
    std::string cwd;
    std::optional<std::string> branch;
    std::string title;
    std::optional<std::string> lastPrompt;
    std::string modelFamily;
    std::int64_t messages = 0;
    std::int64_t tokens = 0;
    double cost = 0;
    Date startedAt;
    Date lastActivity;
    double activeSeconds = 0;
    State state = State::done;
    std::filesystem::path logURL;
    bool operator==(const AgentSession&) const = default;
};

[[nodiscard]] constexpr std::string_view rawValue(AgentSession::State state) {
    switch (state) {
        case AgentSession::State::running:
            return "running";
        case AgentSession::State::waiting:
            return "waiting";
        case AgentSession::State::done:
            return "done";
    }
    return "";
}

}  // namespace vantrelle
