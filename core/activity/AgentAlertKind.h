#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "support/RawEnum.h"

namespace vantrelle {

// What an agent needs from the user, most urgent first.
enum class AgentAlertKind { approval, waiting, done };

inline constexpr std::array<std::string_view, 3> kAgentAlertKindNames{"approval", "waiting", "done"};

[[nodiscard]] constexpr std::string_view rawValue(AgentAlertKind kind) {
    return enumToRaw(kAgentAlertKindNames, kind);
}
[[nodiscard]] constexpr std::optional<AgentAlertKind> agentAlertKindFromRaw(std::string_view raw) {
    return enumFromRaw<AgentAlertKind>(kAgentAlertKindNames, raw);
}

}  // namespace vantrelle
