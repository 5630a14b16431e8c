#include <gtest/gtest.h>

#include <map>

#include "fakes/ScopedTimeZone.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "schedule/FolderCalendarSource.h"
#include "schedule/IcsFixtures.h"

namespace vantrelle {
namespace {

// Folder watches the test wakes by hand, as inotify would after a change.
class FakeFolderWatcher final : public FileWatcher {
public:
    std::unique_ptr<FileWatch> watchFile(const std::filesystem::path&, std::function<void()>) override {
        return nullptr;
    }
    std::unique_ptr<FileWatch> watchFolder(const std::filesystem::path& folder,
                                           std::function<void()> onChange) override {
        wakes[folder] = std::move(onChange);
        return std::make_unique<FileWatch>();
    }
    std::map<std::filesystem::path, std::function<void()>> wakes;
};

class FolderCalendarSourceTest : public ::testing::Test {
protected:
    testing::ScopedTimeZone zone{"UTC"};
    testing::TempDir dir;
    VirtualScheduler scheduler;
    FakeFolderWatcher watcher;
    CalendarLibrary library{{dir / "calendars"}, {}};
    FolderCalendarSource source{library, watcher, scheduler};
};

TEST_F(FolderCalendarSourceTest, OneFileGivesAccessAndEachFolderIsWatchedAndABurstSettlesIntoOneRefresh) {
    EXPECT_EQ(source.access(), CalendarSource::Access::notDetermined) << "no calendar file yet";
    dir.write("calendars/work/a.ics", testing::calendar(""));
    EXPECT_EQ(source.access(), CalendarSource::Access::fullAccess);
    int refreshes = 0;
    source.observeChanges([&] { ++refreshes; });
    EXPECT_TRUE(watcher.wakes.contains(dir / "calendars"));
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

TEST_F(FolderCalendarSourceTest, AFolderTheUserChoosesJoinsTheListAndIsReported) {
    dir.write("elsewhere/x.ics", testing::calendar(""));
    std::vector<std::filesystem::path> reported;
    source.chooseFolder = [&](std::function<void(std::filesystem::path)> answer) {
        answer(dir / "elsewhere");
    };
    source.onFoldersChanged = [&](const auto& folders) { reported = folders; };
    bool done = false;
    source.requestAccess([&] { done = true; });
    EXPECT_TRUE(done);
    EXPECT_EQ(reported, (std::vector<std::filesystem::path>{dir / "calendars", dir / "elsewhere"}));
    EXPECT_EQ(source.access(), CalendarSource::Access::fullAccess);
}

}  // namespace
}  // namespace vantrelle
