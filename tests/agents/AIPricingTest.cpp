#include <gtest/gtest.h>

#include "agents/AIPricing.h"
#include "support/AIFormat.h"

namespace vantrelle {
namespace {

TEST(AIPricingTest, RowsAreSearchedInOrder) {
    EXPECT_EQ(AIPricing::rates("claude-opus-4-8-20260101").input, 5);
    EXPECT_EQ(AIPricing::rates("claude-opus-4-8-20260101").output, 25);
    EXPECT_EQ(AIPricing::rates("claude-opus-4-1").input, 15);
    EXPECT_EQ(AIPricing::rates("gemini-3.5-flash-lite").input, 0.3);
    EXPECT_EQ(AIPricing::rates("gemini-3.5-flash").input, 1.5);
    EXPECT_EQ(AIPricing::rates("Claude-Sonnet-5").input, 2);
    EXPECT_EQ(AIPricing::family("Claude-Sonnet-5"), "Sonnet");
    EXPECT_EQ(AIPricing::family("gpt-5-codex"), "GPT");
    EXPECT_EQ(AIPricing::family(""), "Model");
    EXPECT_EQ(AIPricing::rates("mystery").cacheWrite, 3.75);
    EXPECT_FALSE(AIPricing::rates("mystery").longContext);
}

TEST(AIPricingTest, LongContextIsDecidedPerEvent) {
    AIUsageEvent event;
    event.model = "gemini-2.5-pro";
    event.input = 150'000;
    event.cacheRead = 50'000;
    event.output = 1'000'000;
    EXPECT_DOUBLE_EQ(AIPricing::cost(event), (1.25 * 150'000 + 10 * 1'000'000 + 0.125 * 50'000) / 1e6);
    event.cacheRead = 50'001;
    EXPECT_DOUBLE_EQ(AIPricing::cost(event), (2.5 * 150'000 + 15 * 1'000'000 + 0.25 * 50'001) / 1e6);
    event.model = "gpt-5";
    EXPECT_EQ(AIPricing::cost(event), 0);
}

TEST(AIFormatTest, TokensDurationsAndRemaining) {
    EXPECT_EQ(AIFormat::tokens(-5), "-5");
    EXPECT_EQ(AIFormat::tokens(999), "999");
    EXPECT_EQ(AIFormat::tokens(1000), "1.0k");
    EXPECT_EQ(AIFormat::tokens(999'999), "1000.0k");
    EXPECT_EQ(AIFormat::tokens(1'000'000), "1.00M");
    EXPECT_EQ(AIFormat::tokens(2'500'000'000), "2.50B");
    EXPECT_EQ(AIFormat::duration(3599), "59m 59s");
    EXPECT_EQ(AIFormat::duration(3600), "1h 00m");
    EXPECT_EQ(AIFormat::duration(-3), "0m 00s");
    EXPECT_EQ(AIFormat::remaining(59), "0m");
    EXPECT_EQ(AIFormat::remaining(3660), "1h 1m");
}

}  // namespace
}  // namespace vantrelle
