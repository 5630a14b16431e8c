#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

TEST(VirtualScheduler, RunsDueWorkInOrderWithTheClockAtEachDueTime) {
    VirtualScheduler scheduler(Date{1000});
    std::vector<std::pair<std::string, double>> ran;
    auto record = [&](std::string name) {
        return [&, name] { ran.emplace_back(name, scheduler.now().seconds); };
    };

    scheduler.after(2.0, record("late"));
    scheduler.after(1.0, record("early"));
    scheduler.after(1.0, record("early, scheduled second"));
    scheduler.post(record("posted"));

    scheduler.advance(1.5);
    ASSERT_EQ(ran.size(), 3u);
    EXPECT_EQ(ran[0], (std::pair<std::string, double>{"posted", 1000}));
    EXPECT_EQ(ran[1], (std::pair<std::string, double>{"early", 1001}));
    EXPECT_EQ(ran[2], (std::pair<std::string, double>{"early, scheduled second", 1001}));
    EXPECT_DOUBLE_EQ(scheduler.now().seconds, 1001.5);

    scheduler.advance(0.5);
    ASSERT_EQ(ran.size(), 4u);
    EXPECT_EQ(ran[3].first, "late");
}

TEST(VirtualScheduler, CancelledOrDroppedWorkNeverRuns) {
    VirtualScheduler scheduler;
    int runs = 0;
    WorkItem cancelled = scheduler.schedule(1, [&] { ++runs; });
    cancelled.cancel();
    {
        WorkItem dropped = scheduler.schedule(1, [&] { ++runs; });
    }
    std::optional<WorkItem> cleared = scheduler.schedule(1, [&] { ++runs; });
    cleared.reset();
    EXPECT_EQ(scheduler.pendingCount(), 0u);
    scheduler.advance(5);
    EXPECT_EQ(runs, 0);
}

TEST(VirtualScheduler, ReplacingAHeldWorkItemCancelsTheOldOne) {
    VirtualScheduler scheduler;
    std::vector<int> ran;
    WorkItem item = scheduler.schedule(1, [&] { ran.push_back(1); });
    item = scheduler.schedule(2, [&] { ran.push_back(2); });
    EXPECT_TRUE(item.isActive());
    scheduler.advance(3);
    EXPECT_EQ(ran, std::vector<int>{2});
    EXPECT_FALSE(item.isActive()) << "work that has run is no longer pending";
}

TEST(VirtualScheduler, WorkMayClearItsOwnHandleWhileRunning) {
    VirtualScheduler scheduler;
    std::optional<WorkItem> pending;
    int runs = 0;
    pending = scheduler.schedule(0.35, [&] {
        pending.reset();
        ++runs;
    });
    scheduler.advance(1);
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(pending.has_value());
}

TEST(VirtualScheduler, RepeatingTimerTicksUntilItsOwnerDropsIt) {
    VirtualScheduler scheduler;
    std::vector<double> ticks;
    auto timer = std::make_unique<RepeatingTimer>(
        scheduler.repeat(2.0, [&] { ticks.push_back(scheduler.now().seconds); }));
    const double start = scheduler.now().seconds;
    scheduler.advance(5);
    ASSERT_EQ(ticks.size(), 2u);
    EXPECT_DOUBLE_EQ(ticks[0] - start, 2);
    EXPECT_DOUBLE_EQ(ticks[1] - start, 4);
    timer.reset();
    scheduler.advance(10);
    EXPECT_EQ(ticks.size(), 2u);
}

TEST(VirtualScheduler, PostedWorkFromRunningWorkRunsInTheSameAdvance) {
    VirtualScheduler scheduler;
    std::vector<int> ran;
    scheduler.post([&] {
        ran.push_back(1);
        scheduler.post([&] { ran.push_back(2); });
    });
    scheduler.runUntilIdle();
    EXPECT_EQ(ran, (std::vector<int>{1, 2}));
}

TEST(VirtualScheduler, ZeroDelayRunsAtTheNextTurnNotInline) {
    VirtualScheduler scheduler;
    bool ran = false;
    scheduler.after(0, [&] { ran = true; });
    EXPECT_FALSE(ran);
    scheduler.runUntilIdle();
    EXPECT_TRUE(ran);
}

}  // namespace
}  // namespace vantrelle
