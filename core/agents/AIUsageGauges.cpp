#include "agents/AIUsageGauges.h"

#include <algorithm>

namespace vantrelle {

double AIUsageGauges::secondsLeft(const AIBlockUsage& block, Date now) {
    return std::max(0.0, (block.start + kBlockSeconds) - now);
}

double AIUsageGauges::blockFraction(const AIBlockUsage& block) {
    const auto scale = block.budget > 0 ? block.budget : std::max(block.projectedTokens, block.tokens);
    if (scale <= 0) return 0;
    return std::clamp(static_cast<double>(block.tokens) / static_cast<double>(scale), 0.0, 1.0);
}

bool AIUsageGauges::overBudget(const AIBlockUsage& block) {
    return block.budget > 0 && block.projectedTokens > block.budget;
}

std::vector<double> AIUsageGauges::dayFractions(const std::vector<AIDayTotals>& days) {
    std::int64_t most = 1;
    for (const auto& day : days) most = std::max(most, day.tokens);
    std::vector<double> fractions;
    fractions.reserve(days.size());
    for (const auto& day : days) {
        fractions.push_back(std::max(0.0, static_cast<double>(day.tokens) / static_cast<double>(most)));
    }
    return fractions;
}

}  // namespace vantrelle
