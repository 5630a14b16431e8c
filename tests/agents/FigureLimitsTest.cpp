// Figures at the edges of their range: nothing read from a log may overflow a sum, turn a total
// negative or stop the process.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "agents/AIPricing.h"
#include "support/AIFormat.h"
#include "support/Saturating.h"

namespace vantrelle {
namespace {

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

TEST(FigureLimitsTest, SumsHoldAtTheEndsOfTheRange) {
    struct Row {
        const char* name;
        std::int64_t a, b, sum, difference;
    };
    for (const Row& row : {Row{"small", 2, 3, 5, -1}, Row{"top", kMax, 1, kMax, kMax - 1},
                           Row{"bottom", kMin, -1, kMin, kMin + 1}, Row{"across", kMax, kMin, -1, kMax},
                           Row{"minus the bottom", 0, kMin, kMin, kMax}}) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(saturatingAdd(row.a, row.b), row.sum);
        EXPECT_EQ(saturatingSubtract(row.a, row.b), row.difference);
    }
}

TEST(FigureLimitsTest, DoublesBecomeCountsInsideTheRange) {
    EXPECT_EQ(saturatingCount(12.9), 12);
    EXPECT_EQ(saturatingCount(1e300), kMax);
    EXPECT_EQ(saturatingCount(-1e300), kMin);
    EXPECT_EQ(saturatingCount(std::nan("")), 0);
}

TEST(FigureLimitsTest, TheLongContextRuleSurvivesHugeCounts) {
    AIUsageEvent event;
    event.model = "gemini-2.5-pro";
    event.input = kMax;
    event.cacheRead = kMax;
    const double cost = AIPricing::cost(event);
    EXPECT_GT(cost, 0);  // long-context prices, not a wrapped sum below the threshold
    EXPECT_DOUBLE_EQ(cost, (2.5 * static_cast<double>(kMax) + 0.25 * static_cast<double>(kMax)) / 1e6);
}

TEST(FigureLimitsTest, DurationsThatAreNotFiniteAreShownNotFatal) {
    struct Row {
        const char* name;
        double seconds;
        const char* duration;
        const char* remaining;
    };
    for (const Row& row : {Row{"not a number", std::nan(""), "0m 00s", "0m"},
                           Row{"infinity", std::numeric_limits<double>::infinity(), "2562047788015215h 30m",
                               "2562047788015215h 30m"}}) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(AIFormat::duration(row.seconds), row.duration);
        EXPECT_EQ(AIFormat::remaining(row.seconds), row.remaining);
    }
}

}  // namespace
}  // namespace vantrelle
