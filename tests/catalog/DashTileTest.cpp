#include <gtest/gtest.h>

#include "catalog/DashTile.h"

namespace vantrelle {
namespace {

using enum DashTile;

TEST(DashTile, EmptyGivesTheDefaultTwoRowsOfFour) {
    EXPECT_EQ(normalizedDashTiles({}), (std::vector<DashTile>{today, launcher, pomodoro, dayProgress, tasks,
                                                              notes, reminders, quickToggles}));
}

TEST(DashTile, DuplicatesDropAndNineBecomeTheFirstEightDistinct) {
    const std::vector<DashTile> stored{music,      aiUsage,     music, shelf,   devServers,
                                       screenTime, systemStats, today, launcher};
    EXPECT_EQ(normalizedDashTiles(stored), (std::vector<DashTile>{music, aiUsage, shelf, devServers,
                                                                  screenTime, systemStats, today, launcher}));
}

TEST(DashTile, ShortListsAreFilledFromTheDefaultsFirst) {
    EXPECT_EQ(
        normalizedDashTiles({today, shelf}),
        (std::vector<DashTile>{today, shelf, launcher, pomodoro, dayProgress, tasks, notes, reminders}));
}

TEST(DashTile, RawNamesRoundTrip) {
    for (std::size_t i = 0; i < kDashTileCount; ++i) {
        const auto tile = static_cast<DashTile>(i);
        EXPECT_EQ(dashTileFromRaw(rawValue(tile)), tile);
    }
    EXPECT_FALSE(dashTileFromRaw("weather").has_value());
}

}  // namespace
}  // namespace vantrelle
