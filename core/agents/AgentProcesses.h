#pragma once

#include <set>
#include <vector>

#include "agents/AgentTool.h"
#include "platform/ProcessTable.h"

namespace vantrelle {

// The agents that have a process running. Desktop apps of the agents and this program never count.
[[nodiscard]] std::set<AgentTool> aliveAgentTools(const std::vector<ProcessInfo>& processes);

}  // namespace vantrelle
