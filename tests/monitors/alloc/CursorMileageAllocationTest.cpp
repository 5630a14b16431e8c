#include <gtest/gtest.h>

#include "fakes/AllocationCounter.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "wrapped/CursorMileage.h"

namespace vantrelle::testing {
namespace {

// record() runs beside the overlay's pointer handler for every movement on the desktop.
TEST(CursorMileageAllocations, RecordingAPathAllocatesNothing) {
    TempDir dir;
    VirtualScheduler clock;
    CursorMileage mileage(dir / "cursor-mileage.json", clock, false);
    AllocationScope scope;
    for (int i = 0; i < 10000; ++i) mileage.record(i % 1920, (i * 7) % 1080);
    mileage.lift();
    mileage.record(5, 5);
    EXPECT_EQ(scope.allocations(), 0u);
}

}  // namespace
}  // namespace vantrelle::testing
