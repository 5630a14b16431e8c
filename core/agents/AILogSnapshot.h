#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "agents/AISessionMeta.h"
#include "agents/AIUsageEvent.h"
#include "agents/LogProblems.h"

namespace vantrelle {

// The result of one scan. A value: the lists are immutable and shared between snapshots while they
// don't change, so handing a snapshot to another thread or keeping an old one costs no copy.
struct AILogSnapshot {
    using Events = std::vector<AIUsageEvent>;
    using Sessions = std::map<std::string, AISessionMeta, std::less<>>;

    std::shared_ptr<const Events> eventList = std::make_shared<const Events>();
    std::shared_ptr<const Sessions> sessionMap = std::make_shared<const Sessions>();
    Date scannedAt;
    LogProblems problems;  // what the scanner has skipped so far

    // Claude Code and Codex events in order of arrival, then the Gemini events.
    [[nodiscard]] const Events& events() const { return *eventList; }
    [[nodiscard]] const Sessions& sessions() const { return *sessionMap; }
};

}  // namespace vantrelle
