#include <algorithm>
#include <optional>
#include <thread>
#include <vector>

#include "QtMainScheduler.h"
#include "TestApplication.h"

namespace vantrelle {
namespace {

using QtMainSchedulerTest = testing::EventLoopTest;
using testing::spinUntil;

TEST_F(QtMainSchedulerTest, RunsPostedAndDueWorkFromAnyThreadAndHonoursCancellation) {
    QtMainScheduler scheduler;
    std::vector<int> ran;
    scheduler.post([&] { ran.push_back(1); });
    WorkItem cancelled = scheduler.schedule(0.001, [&] { ran.push_back(99); });
    cancelled.cancel();
    WorkItem due = scheduler.schedule(0.01, [&] { ran.push_back(2); });
    // A post from another thread runs on this one.
    const auto mainThread = std::this_thread::get_id();
    std::thread([&] {
        scheduler.post([&] { ran.push_back(std::this_thread::get_id() == mainThread ? 3 : 0); });
    }).join();
    ASSERT_TRUE(spinUntil([&] { return ran.size() >= 3; }));
    EXPECT_FALSE(due.isActive()) << "work that has run is no longer pending";
    spinUntil([] { return false; }, 50);
    std::ranges::sort(ran);  // the other thread's post may come before or after the due work
    EXPECT_EQ(ran, (std::vector<int>{1, 2, 3}));
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
