#include <fstream>

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

}  // namespace
}  // namespace vantrelle
