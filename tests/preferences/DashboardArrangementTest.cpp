#include <gtest/gtest.h>

#include "preferences/DashboardArrangement.h"

namespace vantrelle {
namespace {

using enum DashTile;
const std::vector<DashTile> kStart{today, launcher, pomodoro,  dayProgress,
                                   tasks, notes,    reminders, quickToggles};

struct MoveCase {
    const char* name;
    std::size_t from;
    std::size_t to;
    std::vector<DashTile> expected;
};

TEST(DashboardArrangementTest, MovingATileClosesUpTheOthers) {
    const std::vector<MoveCase> cases{
        {"first to last",
         0,
         7,
         {launcher, pomodoro, dayProgress, tasks, notes, reminders, quickToggles, today}},
        {"last to first",
         7,
         0,
         {quickToggles, today, launcher, pomodoro, dayProgress, tasks, notes, reminders}},
        {"one down", 1, 2, {today, pomodoro, launcher, dayProgress, tasks, notes, reminders, quickToggles}},
        {"from past the end", 8, 0, kStart},
        {"to past the end", 0, 8, kStart},
    };
    for (const auto& c : cases) EXPECT_EQ(movedDashTile(kStart, c.from, c.to), c.expected) << c.name;
}

TEST(DashboardArrangementTest, PlacingATileSwapsOrReplaces) {
    // A tile not on the Dashboard replaces the slot's tile.
    EXPECT_EQ(
        placedDashTile(kStart, 2, music),
        (std::vector<DashTile>{today, launcher, music, dayProgress, tasks, notes, reminders, quickToggles}));
    // A tile already shown trades places, so the eight stay distinct.
    EXPECT_EQ(placedDashTile(kStart, 0, notes),
              (std::vector<DashTile>{notes, launcher, pomodoro, dayProgress, tasks, today, reminders,
                                     quickToggles}));
    EXPECT_EQ(placedDashTile(kStart, 4, tasks), kStart) << "placing a tile where it is changes nothing";
}

}  // namespace
}  // namespace vantrelle
