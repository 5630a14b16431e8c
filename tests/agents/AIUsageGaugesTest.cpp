#include <gtest/gtest.h>

#include "agents/AIUsageGauges.h"

namespace vantrelle {
namespace {

struct BlockRow {
    const char* name;
    std::int64_t tokens;
    std::int64_t projected;
    std::int64_t budget;
    double fraction;
    bool overBudget;
};

TEST(AIUsageGaugesTest, TheGaugeFillsAgainstTheBudgetOrWhereTheWindowIsHeadingUntilItCloses) {
    const BlockRow rows[] = {
        {"no budget: against the projection", 250, 1000, 0, 0.25, false},
        {"no budget, projection behind the tokens", 500, 100, 0, 1.0, false},
        {"heading past the budget", 100, 500, 400, 0.25, true},
        {"projection exactly at the budget", 100, 400, 400, 0.25, false},
        {"past the budget, gauge stays full", 900, 900, 400, 1.0, true},
        {"empty window", 0, 0, 0, 0.0, false},
        {"negative tokens", -50, 100, 0, 0.0, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        AIBlockUsage block;
        block.tokens = row.tokens;
        block.projectedTokens = row.projected;
        block.budget = row.budget;
        EXPECT_DOUBLE_EQ(AIUsageGauges::blockFraction(block), row.fraction);
        EXPECT_EQ(AIUsageGauges::overBudget(block), row.overBudget);
    }
    // The window closes five hours after its start.
    AIBlockUsage block;
    block.start = Date{1'000'000};
    EXPECT_EQ(AIUsageGauges::secondsLeft(block, block.start), 5 * 3600);
    EXPECT_EQ(AIUsageGauges::secondsLeft(block, block.start + 4 * 3600 + 1800), 1800);
    EXPECT_EQ(AIUsageGauges::secondsLeft(block, block.start + 5 * 3600), 0);
    EXPECT_EQ(AIUsageGauges::secondsLeft(block, block.start + 6 * 3600), 0);
}

}  // namespace
}  // namespace vantrelle
