#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>

#include "InotifyFileWatcher.h"
#include "TestApplication.h"
#include "fakes/TempDir.h"

namespace vantrelle {
namespace {

using testing::spinUntil;

class InotifyFileWatcherTest : public testing::EventLoopTest {
protected:
    // Makes `change` and tells whether it woke the watches counted in `wakes` within the limit.
    bool wakesOn(const std::function<void()>& change, int limitMs = 20000) {
        const int before = wakes;
        change();
        return spinUntil([&] { return wakes > before; }, limitMs);
    }

    testing::TempDir dir;
    InotifyFileWatcher watcher;
    int wakes = 0;
};

TEST_F(InotifyFileWatcherTest, WakesOnAppendsAndTruncationAndStopsWhenDropped) {
    const auto file = dir.write("events.jsonl", "");
    auto watch = watcher.watchFile(file, [&] { ++wakes; });
    ASSERT_NE(watch, nullptr);
    EXPECT_TRUE(wakesOn([&] { std::ofstream(file, std::ios::app) << "{}\n"; }));
    EXPECT_TRUE(wakesOn([&] { std::ofstream(file, std::ios::trunc).flush(); }));
    watch.reset();
    EXPECT_FALSE(wakesOn([&] { std::ofstream(file, std::ios::app) << "{}\n"; }, 50));
    EXPECT_EQ(watcher.watchFile(dir / "missing", [] {}), nullptr);
}

TEST_F(InotifyFileWatcherTest, AFolderWatchWakesWhenAFileIsCreatedRenamedInOrDeleted) {
    std::filesystem::create_directories(dir / "calendar");
    int others = 0;
    auto watch = watcher.watchFolder(dir / "calendar", [&] { ++wakes; });
    auto other = watcher.watchFolder(dir / "calendar", [&] { ++others; });
    ASSERT_NE(watch, nullptr);

    EXPECT_TRUE(wakesOn([&] { dir.write("calendar/a.ics", "x"); }));
    ASSERT_TRUE(spinUntil([&] { return others >= 1; })) << "both watches of one path wake";
    other.reset();  // and dropping one keeps the other
    const int othersSeen = others;
    // The way sync tools write: a temporary file elsewhere, renamed in.
    const auto outside = dir.write("b.tmp", "y");
    EXPECT_TRUE(wakesOn([&] { std::filesystem::rename(outside, dir / "calendar/b.ics"); }));
    EXPECT_TRUE(wakesOn([&] { std::filesystem::remove(dir / "calendar/a.ics"); }));
    EXPECT_EQ(others, othersSeen);

    EXPECT_EQ(watcher.watchFolder(dir / "calendar/b.ics", [] {}), nullptr) << "a file is no folder";
    EXPECT_EQ(watcher.watchFolder(dir / "missing", [] {}), nullptr);
}

TEST_F(InotifyFileWatcherTest, AWatchDroppedByAnotherHandlerOfTheSameWakeIsNotCalled) {
    std::unique_ptr<FileWatch> secondWatch;
    auto firstWatch = watcher.watchFolder(dir.path(), [&] {
        ++wakes;
        secondWatch.reset();  // its owner goes with it
    });
    auto owner = std::make_unique<int>(0);
    secondWatch = watcher.watchFolder(dir.path(), [&] { ++*owner; });
    EXPECT_TRUE(wakesOn([&] { dir.write("a.txt", "x"); }));
    EXPECT_EQ(*owner, 0);
}

}  // namespace
}  // namespace vantrelle
