#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "support/AIFormat.h"

namespace vantrelle {
namespace {

TEST(AIFormat, TokensStepUpAtEachThousand) {
    const struct {
        std::int64_t n;
        const char* text;
    } rows[] = {
        {-5, "-5"},
        {-1'000'000, "-1000000"},  // negatives stay plain
        {0, "0"},
        {999, "999"},
        {1000, "1.0k"},
        {1049, "1.0k"},
        {12'345, "12.3k"},
        {999'999, "1000.0k"},  // the unit changes at the count, not at the rounded text
        {1'000'000, "1.00M"},
        {1'234'567, "1.23M"},
        {999'999'999, "1000.00M"},
        {1'000'000'000, "1.00B"},
        {2'500'000'000, "2.50B"},
        {std::numeric_limits<std::int64_t>::max(), "9223372036.85B"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.n);
        EXPECT_EQ(AIFormat::tokens(row.n), row.text);
    }
}

TEST(AIFormat, DurationsShowSecondsBelowAnHourAndMinutesFromIt) {
    const struct {
        double seconds;
        const char* text;
    } rows[] = {
        {-3, "0m 00s"},   {0, "0m 00s"},     {0.999, "0m 00s"},    {59.9, "0m 59s"},
        {60, "1m 00s"},   {3599, "59m 59s"}, {3599.99, "59m 59s"}, {3600, "1h 00m"},
        {3659, "1h 00m"}, {3661, "1h 01m"},  {86'400, "24h 00m"},  {2 * 86'400 + 600, "48h 10m"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.seconds);
        EXPECT_EQ(AIFormat::duration(row.seconds), row.text);
    }
}

TEST(AIFormat, RemainingTimeHasNoPadding) {
    const struct {
        double seconds;
        const char* text;
    } rows[] = {
        {-1, "0m"},      {0, "0m"},       {59, "0m"},      {60, "1m"},         {3599.9, "59m"},
        {3600, "1h 0m"}, {3660, "1h 1m"}, {3719, "1h 1m"}, {36'000, "10h 0m"}, {18'000, "5h 0m"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.seconds);
        EXPECT_EQ(AIFormat::remaining(row.seconds), row.text);
    }
}

}  // namespace
}  // namespace vantrelle
