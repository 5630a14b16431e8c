#include <gtest/gtest.h>

#include "fakes/ScopedTimeZone.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "schedule/FolderCalendarSource.h"
#include "schedule/FolderWatches.h"
#include "schedule/IcsFixtures.h"

namespace vantrelle {
namespace {

class FolderCalendarSourceTest : public ::testing::Test {
protected:
    testing::ScopedTimeZone zone{"UTC"};
    testing::TempDir dir;
    VirtualScheduler scheduler;
    testing::FolderWatches watcher;
    CalendarLibrary library{{dir / "calendars"}, {}};
    FolderCalendarSource source{library, watcher, scheduler};
};

TEST_F(FolderCalendarSourceTest, OneFileGivesAccessAndEachFolderIsWatchedAndABurstSettlesIntoOneRefresh) {
    EXPECT_EQ(source.access(), CalendarSource::Access::notDetermined) << "no calendar file yet";
    dir.write("calendars/work/a.ics", testing::calendar(""));
    EXPECT_EQ(source.access(), CalendarSource::Access::fullAccess);
    int refreshes = 0;
    source.observeChanges([&] { ++refreshes; });
    EXPECT_TRUE(watcher.wakes.contains(dir / "calendars/work"));

    for (int i = 0; i < 5; ++i) watcher.wakes[dir / "calendars/work"]();
    scheduler.advance(FolderCalendarSource::kSettleDelay - 0.01);
    EXPECT_EQ(refreshes, 0);
    scheduler.advance(0.01);
    EXPECT_EQ(refreshes, 1);

    dir.write("calendars/home/b.ics", testing::calendar(""));
    (void)source.access();
    EXPECT_TRUE(watcher.wakes.contains(dir / "calendars/home"))
        << "a calendar folder made later is watched too";
}

}  // namespace
}  // namespace vantrelle
