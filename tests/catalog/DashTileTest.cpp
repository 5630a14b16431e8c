#include <gtest/gtest.h>

#include "catalog/DashTile.h"

namespace vantrelle {
namespace {

using enum DashTile;

TEST(DashTile, StoredListsBecomeEightDistinctTilesFilledFromTheDefaults) {
    const struct {
        const char* name;
        std::vector<DashTile> stored, shown;
    } rows[] = {
        {"empty: the default two rows of four",
         {},
         {today, launcher, pomodoro, dayProgress, tasks, notes, reminders, quickToggles}},
        {"duplicates drop, nine become the first eight",
         {music, aiUsage, music, shelf, devServers, screenTime, systemStats, today, launcher},
         {music, aiUsage, shelf, devServers, screenTime, systemStats, today, launcher}},
        {"short lists filled from the defaults",
         {today, shelf},
         {today, shelf, launcher, pomodoro, dayProgress, tasks, notes, reminders}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(normalizedDashTiles(row.stored), row.shown);
    }
    EXPECT_FALSE(dashTileFromRaw("weather").has_value());
}

}  // namespace
}  // namespace vantrelle
