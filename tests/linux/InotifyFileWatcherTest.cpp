#include <filesystem>
#include <fstream>
#include <memory>

#include "InotifyFileWatcher.h"
#include "TestApplication.h"
#include "fakes/TempDir.h"

namespace vantrelle {
namespace {

using InotifyFileWatcherTest = testing::EventLoopTest;
using testing::spinUntil;

TEST_F(InotifyFileWatcherTest, WakesOnAppendsAndTruncationAndStopsWhenDropped) {
    testing::TempDir dir;
    const auto file = dir.write("events.jsonl", "");
    InotifyFileWatcher watcher;
    int wakes = 0;
    auto watch = watcher.watchFile(file, [&] { ++wakes; });
    ASSERT_NE(watch, nullptr);

    std::ofstream(file, std::ios::app) << "{}\n";
    ASSERT_TRUE(spinUntil([&] { return wakes >= 1; }));
    const int afterAppend = wakes;
    std::ofstream(file, std::ios::trunc).flush();
    ASSERT_TRUE(spinUntil([&] { return wakes > afterAppend; }));

    watch.reset();
    const int seen = wakes;
    std::ofstream(file, std::ios::app) << "{}\n";
    spinUntil([] { return false; }, 50);
    EXPECT_EQ(wakes, seen);
    EXPECT_EQ(watcher.watchFile(dir / "missing", [] {}), nullptr);
}

TEST_F(InotifyFileWatcherTest, AFolderWatchWakesWhenAFileIsCreatedRenamedInOrDeleted) {
    testing::TempDir dir;
    std::filesystem::create_directories(dir / "calendar");
    InotifyFileWatcher watcher;
    int wakes = 0;
    auto watch = watcher.watchFolder(dir / "calendar", [&] { ++wakes; });
    ASSERT_NE(watch, nullptr);

    dir.write("calendar/a.ics", "x");
    ASSERT_TRUE(spinUntil([&] { return wakes >= 1; }));
    int seen = wakes;
    // The way sync tools write: a temporary file elsewhere, renamed in.
    const auto outside = dir.write("b.tmp", "y");
    std::filesystem::rename(outside, dir / "calendar/b.ics");
    ASSERT_TRUE(spinUntil([&] { return wakes > seen; }));
    seen = wakes;
    std::filesystem::remove(dir / "calendar/a.ics");
    ASSERT_TRUE(spinUntil([&] { return wakes > seen; }));

    EXPECT_EQ(watcher.watchFolder(dir / "calendar/b.ics", [] {}), nullptr) << "a file is no folder";
    EXPECT_EQ(watcher.watchFolder(dir / "missing", [] {}), nullptr);
}

TEST_F(InotifyFileWatcherTest, TwoWatchesOfOnePathBothWakeAndDroppingOneKeepsTheOther) {
    testing::TempDir dir;
    InotifyFileWatcher watcher;
    int first = 0;
    int second = 0;
    auto firstWatch = watcher.watchFolder(dir.path(), [&] { ++first; });
    auto secondWatch = watcher.watchFolder(dir.path(), [&] { ++second; });
    dir.write("a.txt", "x");
    ASSERT_TRUE(spinUntil([&] { return first >= 1 && second >= 1; }));

    firstWatch.reset();
    const int firstSeen = first;
    dir.write("b.txt", "y");
    ASSERT_TRUE(spinUntil([&] { return second >= 2; }));
    EXPECT_EQ(first, firstSeen);
}

TEST_F(InotifyFileWatcherTest, AWatchDroppedByAnotherHandlerOfTheSameWakeIsNotCalled) {
    testing::TempDir dir;
    InotifyFileWatcher watcher;
    std::unique_ptr<FileWatch> secondWatch;
    int first = 0;
    auto firstWatch = watcher.watchFolder(dir.path(), [&] {
        ++first;
        secondWatch.reset();  // its owner goes with it
    });
    auto owner = std::make_unique<int>(0);
    secondWatch = watcher.watchFolder(dir.path(), [&] { ++*owner; });
    dir.write("a.txt", "x");
    ASSERT_TRUE(spinUntil([&] { return first >= 1; }));
    EXPECT_EQ(*owner, 0);
}

}  // namespace
}  // namespace vantrelle
