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
    EXPECT_TRUE(ran.empty()) << "nothing runs inline";

    scheduler.advance(1.5);
    EXPECT_EQ(ran, (Ran{{"posted", 1000}, {"early", 1001}, {"early, scheduled second", 1001}}));
    EXPECT_DOUBLE_EQ(scheduler.now().seconds, 1001.5);
    scheduler.advance(0.5);
    EXPECT_EQ(ran.back(), (std::pair<std::string, double>{"late", 1002}));
}

TEST(VirtualScheduler, CancelledDroppedOrReplacedWorkNeverRunsRunningWorkMayPostMoreAndTimersRepeat) {
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
    std::optional<WorkItem> selfClearing;
    selfClearing = scheduler.schedule(0.35, [&] {
        selfClearing.reset();  // its own handle, while it runs
        ran.push_back(5);
        scheduler.post([&] { ran.push_back(6); });
    });
    // A repeating timer ticks until its owner drops it.
    auto timer = std::make_unique<RepeatingTimer>(scheduler.repeat(2.0, [&] { ran.push_back(7); }));
    scheduler.advance(5);
    timer.reset();
    scheduler.advance(10);
    EXPECT_EQ(ran, (std::vector<int>{5, 6, 4, 7, 7}));
    EXPECT_FALSE(replaced.isActive()) << "work that has run is no longer pending";
}

}  // namespace
}  // namespace vantrelle
