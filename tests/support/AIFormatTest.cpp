#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "support/AIFormat.h"

namespace vantrelle {
namespace {

// Negatives stay plain; the unit changes at the count, not at the rounded text (999,999 is "1000.0k").
TEST(AIFormat, TokensStepUpAtEachThousand) {
    const struct {
        std::int64_t n;
        const char* text;
    } rows[] = {{-1'000'000, "-1000000"}, {999, "999"},         {1000, "1.0k"},
                {999'999, "1000.0k"},     {1'000'000, "1.00M"}, {1'000'000'000, "1.00B"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.n);
        EXPECT_EQ(AIFormat::tokens(row.n), row.text);
    }
}

TEST(AIFormat, DurationsAndRemainingTimeChangeFormAtTheHour) {
    const struct {
        double seconds;
        const char* duration;
        const char* remaining;
    } rows[] = {
        {-3, "0m 00s", "0m"},      {59.9, "0m 59s", "0m"},    {3599.99, "59m 59s", "59m"},
        {3600, "1h 00m", "1h 0m"}, {3719, "1h 01m", "1h 1m"}, {2 * 86'400 + 600, "48h 10m", "48h 10m"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.seconds);
        EXPECT_EQ(AIFormat::duration(row.seconds), row.duration);
        EXPECT_EQ(AIFormat::remaining(row.seconds), row.remaining);
    }
}

// Cents below a hundred dollars, whole dollars from there with half a dollar rounding up.
TEST(AIFormat, CostsShowCentsBelowAHundredDollarsAndWholeDollarsFromThere) {
    const struct {
        double dollars;
        const char* text;
    } rows[] = {{3.456, "$3.46"},
                {99.99, "$99.99"},
                {100, "$100"},
                {1234.5, "$1235"},
                {std::numeric_limits<double>::quiet_NaN(), "$0.00"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.dollars);
        EXPECT_EQ(AIFormat::cost(row.dollars), row.text);
    }
}

}  // namespace
}  // namespace vantrelle
