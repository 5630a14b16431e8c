#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

using Ran = std::vector<std::pair<std::string, double>>;

TEST(VirtualScheduler, RunsDueWorkInOrderWithTheClockAtEachDueTime) {
    VirtualScheduler scheduler(Date{1000});
    Ran ran;
    auto record = [&](std::string name) {
        return [&, name] { ran.emplace_back(name, scheduler.now().seconds); };
    };

    scheduler.after(2.0, record("late"));
    scheduler.after(1.0, record("early"));
    scheduler.after(1.0, record("early, scheduled second"));
    scheduler.post(record("posted"));
    scheduler.after(0, record("no delay"));
    EXPECT_TRUE(ran.empty()) << "nothing runs inline";

    scheduler.advance(1.5);
    EXPECT_EQ(
        ran, (Ran{{"posted", 1000}, {"no delay", 1000}, {"early", 1001}, {"early, scheduled second", 1001}}));
    EXPECT_DOUBLE_EQ(scheduler.now().seconds, 1001.5);
    scheduler.advance(0.5);
    EXPECT_EQ(ran.back(), (std::pair<std::string, double>{"late", 1002}));
}

TEST(VirtualScheduler, CancelledDroppedOrReplacedWorkNeverRuns) {
    VirtualScheduler scheduler;
    std::vector<int> ran;
    WorkItem cancelled = scheduler.schedule(1, [&] { ran.push_back(1); });
    cancelled.cancel();
    {
        WorkItem dropped = scheduler.schedule(1, [&] { ran.push_back(2); });
    }
    WorkItem replaced = scheduler.schedule(1, [&] { ran.push_back(3); });
    replaced = scheduler.schedule(2, [&] { ran.push_back(4); });
    EXPECT_EQ(scheduler.pendingCount(), 1u);
    scheduler.advance(5);
    EXPECT_EQ(ran, std::vector<int>{4});
    EXPECT_FALSE(replaced.isActive()) << "work that has run is no longer pending";
}

TEST(VirtualScheduler, WorkMayClearItsOwnHandleOrPostMoreWhileRunning) {
    VirtualScheduler scheduler;
    std::optional<WorkItem> pending;
    std::vector<int> ran;
    pending = scheduler.schedule(0.35, [&] {
        pending.reset();
        ran.push_back(1);
        scheduler.post([&] { ran.push_back(2); });
    });
    scheduler.advance(1);
    EXPECT_EQ(ran, (std::vector<int>{1, 2}));
    EXPECT_FALSE(pending.has_value());
}

TEST(VirtualScheduler, RepeatingTimerTicksUntilItsOwnerDropsIt) {
    VirtualScheduler scheduler;
    std::vector<double> ticks;
    const double start = scheduler.now().seconds;
    auto timer = std::make_unique<RepeatingTimer>(
        scheduler.repeat(2.0, [&] { ticks.push_back(scheduler.now().seconds - start); }));
    scheduler.advance(5);
    timer.reset();
    scheduler.advance(10);
    EXPECT_EQ(ticks, (std::vector<double>{2, 4}));
}

}  // namespace
}  // namespace vantrelle
