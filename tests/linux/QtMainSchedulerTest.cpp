#include <atomic>
#include <optional>
#include <thread>
#include <vector>

#include "QtMainScheduler.h"
#include "TestApplication.h"

namespace vantrelle {
namespace {

using QtMainSchedulerTest = testing::EventLoopTest;
using testing::spinUntil;

TEST_F(QtMainSchedulerTest, RunsPostedAndDueWorkAndHonoursCancellation) {
    QtMainScheduler scheduler;
    std::vector<int> ran;
    scheduler.post([&] { ran.push_back(1); });
    WorkItem cancelled = scheduler.schedule(0.001, [&] { ran.push_back(99); });
    cancelled.cancel();
    WorkItem due = scheduler.schedule(0.01, [&] { ran.push_back(2); });
    ASSERT_TRUE(spinUntil([&] { return ran.size() >= 2; }));
    EXPECT_FALSE(due.isActive()) << "work that has run is no longer pending";
    spinUntil([] { return false; }, 50);
    EXPECT_EQ(ran, (std::vector<int>{1, 2}));
}

TEST_F(QtMainSchedulerTest, TakesPostsFromOtherThreads) {
    QtMainScheduler scheduler;
    std::atomic<bool> onMain{false};
    const auto mainThread = std::this_thread::get_id();
    std::thread worker([&] { scheduler.post([&] { onMain = std::this_thread::get_id() == mainThread; }); });
    worker.join();
    EXPECT_TRUE(spinUntil([&] { return onMain.load(); }));
}

TEST_F(QtMainSchedulerTest, RepeatingTimerStopsWhenDropped) {
    QtMainScheduler scheduler;
    int ticks = 0;
    auto timer = std::make_optional(scheduler.repeat(0.005, [&] { ++ticks; }));
    ASSERT_TRUE(spinUntil([&] { return ticks >= 3; }));
    timer.reset();
    const int seen = ticks;
    spinUntil([] { return false; }, 60);
    EXPECT_EQ(ticks, seen);
}

}  // namespace
}  // namespace vantrelle
