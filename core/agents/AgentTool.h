#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "support/RawEnum.h"

namespace vantrelle {

// The coding agents whose logs are read.
enum class AgentTool { claudeCode, codex, gemini };

inline constexpr std::array<std::string_view, 3> kAgentToolNames{"claudeCode", "codex", "gemini"};

[[nodiscard]] constexpr std::string_view rawValue(AgentTool tool) {
    return enumToRaw(kAgentToolNames, tool);
}
[[nodiscard]] constexpr std::optional<AgentTool> agentToolFromRaw(std::string_view raw) {
    return enumFromRaw<AgentTool>(kAgentToolNames, raw);
}

// "Claude Code", "Codex", "Gemini CLI".
[[nodiscard]] constexpr std::string_view displayName(AgentTool tool) {
    switch (tool) {
        case AgentTool::claudeCode:
            return "Claude Code";
        case AgentTool::codex:
            return "Codex";
        case AgentTool::gemini:
            return "Gemini CLI";
    }
    return "";
}

}  // namespace vantrelle
