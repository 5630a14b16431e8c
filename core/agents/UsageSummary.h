#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "agents/AILogSnapshot.h"
#include "agents/AIUsageFigures.h"

namespace vantrelle {

// What the usage panel shows, reduced from the events and sessions of one scan. Plain functions over
// data held in memory: no clock, no files, no timers, so the model and the command line agree.
struct UsageSummary {
    AITotals today;
    std::vector<AIDayTotals> last7Days;  // oldest first, today last
    std::optional<AIBlockUsage> block;   // the window still open at `now`, if any
    std::vector<AgentSession> sessions;  // live first, then by last activity, at most kMaxListedSessions
    bool operator==(const UsageSummary&) const = default;
};

struct UsageInputs {
    const AILogSnapshot::Events& events;
    const AILogSnapshot::Sessions& sessions;
    Date now;
    std::set<AgentTool> aliveTools;  // agents with a process right now
    std::int64_t budgetSetting = 0;  // the user's window budget; 0: the largest window seen, at least 1M
};

inline constexpr std::size_t kMaxListedSessions = 50;

// Events ordered by time; events of the same moment keep their order.
[[nodiscard]] std::vector<const AIUsageEvent*> sortedByTime(const AILogSnapshot::Events& events);

// The 5-hour windows of time-sorted events: each opens at the full hour before its first event and
// takes events until 5 hours after its start or 5 hours of silence.
[[nodiscard]] std::vector<AIBlockUsage> usageBlocks(const std::vector<const AIUsageEvent*>& sorted);

// The last window of Claude Code and Codex if it is still open at `now`, with its burn rate, projection
// and budget filled in.
[[nodiscard]] std::optional<AIBlockUsage> openBlock(const std::vector<const AIUsageEvent*>& sorted, Date now,
                                                    std::int64_t budgetSetting);

[[nodiscard]] UsageSummary summarizeUsage(const UsageInputs& inputs);

// Every event's figures summed by local calendar day ("YYYY-MM-DD"), the whole history.
struct UsageDay {
    std::int64_t input = 0, output = 0, cacheRead = 0, cacheWrite = 0, messages = 0;
    double cost = 0;
    bool operator==(const UsageDay&) const = default;
};
[[nodiscard]] std::map<std::string, UsageDay> usageByDay(const AILogSnapshot::Events& events);

}  // namespace vantrelle
