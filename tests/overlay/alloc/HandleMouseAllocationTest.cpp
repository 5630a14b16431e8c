#include "fakes/AllocationCounter.h"
#include "overlay/OverlayFixture.h"

namespace vantrelle::testing {
namespace {

using HandleMouseAllocations = OverlayFixture;

// The pointer handler runs for every movement on the desktop; it must not allocate unless the panel's
// state changes.
TEST_F(HandleMouseAllocations, SteadyStateEventsAllocateNothing) {
    auto& overlay = started();
    activities.set(LiveActivity{LiveActivity::AI{"vantrelle", 52'000, 0.4, true}},
                   LiveActivityCenter::Source::ai);

    {
        AllocationScope scope;
        for (int i = 0; i < 1000; ++i) move(Point{100.0 + i, 100});  // far from the notch
        for (int i = 0; i < 1000; ++i) drag(Point{100.0 + i, 500});  // a window drag
        EXPECT_EQ(scope.allocations(), 0u);
    }

    click(notchCentre);
    ASSERT_TRUE(overlay.state().isExpanded());
    {
        AllocationScope scope;
        for (int i = 0; i < 1000; ++i) move(Point{400.0 + i * 0.5, 800});  // inside the open panel
        for (int i = 0; i < 1000; ++i) click(Point{500, 800});             // clicks inside
        EXPECT_EQ(scope.allocations(), 0u);
    }

    move(farAway);  // schedules the close: one work item
    {
        AllocationScope scope;
        for (int i = 0; i < 1000; ++i) move(Point{10.0 + i, 10});  // close already pending
        EXPECT_EQ(scope.allocations(), 0u);
    }
}

}  // namespace
}  // namespace vantrelle::testing
