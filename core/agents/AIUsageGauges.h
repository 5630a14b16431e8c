#pragma once

#include <vector>

#include "agents/AIUsageFigures.h"

namespace vantrelle {

// How the usage panel scales its figures: the 5-hour window's gauge and the week's bars.
namespace AIUsageGauges {

// Seconds until the window closes; 0 once it has.
[[nodiscard]] double secondsLeft(const AIBlockUsage& block, Date now);
// How full the window's gauge is, 0 to 1: against the budget, or without one against where the
// window is heading.
[[nodiscard]] double blockFraction(const AIBlockUsage& block);
// The window is heading past a budget the user set.
[[nodiscard]] bool overBudget(const AIBlockUsage& block);
// Each day's bar as a fraction of the busiest day's; all 0 for a quiet week.
[[nodiscard]] std::vector<double> dayFractions(const std::vector<AIDayTotals>& days);

}  // namespace AIUsageGauges

}  // namespace vantrelle
