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
        {-1'000'000, "-1000000"},  // negatives stay plain
        {999, "999"},
        {1000, "1.0k"},
        {12'345, "12.3k"},
        {999'999, "1000.0k"},  // the unit changes at the count, not at the rounded text
        {1'000'000, "1.00M"},
        {999'999'999, "1000.00M"},
        {1'000'000'000, "1.00B"},
    };
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
        {-3, "0m 00s", "0m"},        {0.999, "0m 00s", "0m"},
        {59.9, "0m 59s", "0m"},      {60, "1m 00s", "1m"},
        {3599.99, "59m 59s", "59m"}, {3600, "1h 00m", "1h 0m"},
        {3719, "1h 01m", "1h 1m"},   {2 * 86'400 + 600, "48h 10m", "48h 10m"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.seconds);
        EXPECT_EQ(AIFormat::duration(row.seconds), row.duration);
        EXPECT_EQ(AIFormat::remaining(row.seconds), row.remaining);
    }
}

TEST(AIFormat, CostsShowCentsBelowAHundredDollarsAndWholeDollarsFromThere) {
    const struct {
        const char* name;
        double dollars;
        const char* text;
    } rows[] = {
        {"rounds to the cent", 3.456, "$3.46"},
        {"just below a hundred", 99.99, "$99.99"},
        {"a hundred", 100, "$100"},
        {"half a dollar rounds up", 1234.5, "$1235"},
        {"not a number", std::numeric_limits<double>::quiet_NaN(), "$0.00"},
        {"infinite", std::numeric_limits<double>::infinity(), "$0.00"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(AIFormat::cost(row.dollars), row.text);
    }
}

}  // namespace
}  // namespace vantrelle
