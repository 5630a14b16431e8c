#include <gtest/gtest.h>

#include <limits>

#include "media/PlaybackTime.h"

namespace vantrelle {
namespace {

TEST(PlaybackTime, FormatsMinutesAndHours) {
    struct Row {
        double seconds;
        const char* text;
    };
    const Row rows[] = {
        {0, "0:00"},       {59.99, "0:59"},   {60, "1:00"},
        {273, "4:33"},     {3599.9, "59:59"}, {3600, "1:00:00"},
        {3725, "1:02:05"}, {-4, "0:00"},      {std::numeric_limits<double>::quiet_NaN(), "0:00"},
    };
    for (const auto& row : rows) EXPECT_EQ(formatPlaybackTime(row.seconds), row.text) << row.seconds;
}

}  // namespace
}  // namespace vantrelle
