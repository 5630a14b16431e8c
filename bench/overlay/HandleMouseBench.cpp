// The cost of one pointer event in the overlay state machine, and the allocations it makes.
#include <benchmark/benchmark.h>

#include "fakes/AllocationCounter.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakeOverlayPorts.h"
#include "overlay/NotchOverlayController.h"
#include "platform/VirtualScheduler.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle {
namespace {

struct Rig {
    Rig() {
        screens.list = {
            ScreenInfo{"eDP-1", Rect{0, 0, 1512, 982}, Rect{0, 0, 1512, 958}, std::nullopt, std::nullopt}};
        controller.start();
    }
    VirtualScheduler scheduler;
    MemoryDefaultsStore defaults;
    NotificationCenter notifications;
    testing::FakeLoginItem loginItem;
    AppSettings settings{defaults, notifications, loginItem, scheduler};
    LiveActivityCenter activities{scheduler};
    MapEnvironment environment;
    testing::RecordingWindows windows;
    testing::FakeScreens screens;
    testing::FakePasteboard pasteboard;
    testing::RecordingSounds sounds;
    testing::FakeServices services;
    CameraUse camera;
    NotchOverlayController controller{NotchOverlayController::Dependencies{
        settings, activities, notifications, scheduler, scheduler, environment, windows, screens, pasteboard,
        sounds, services, QuietMonitor::Probes{}, camera}};
};

// Sends `type` events along a horizontal line from `fromX` to `toX` at height `y`, over and over, and
// reports the allocations per event beside the time.
void sweep(benchmark::State& state, NotchOverlayController::MouseEvent type, double fromX, double toX,
           double y, bool expanded) {
    Rig rig;
    if (expanded) rig.controller.setExpanded(true, "bench");
    double x = fromX;
    const auto before = testing::allocationCount();
    for (auto _ : state) {
        rig.controller.handleMouse(type, Point{x, y});
        x = x > toX ? fromX : x + 1;
    }
    state.counters["allocs/event"] = benchmark::Counter(
        static_cast<double>(testing::allocationCount() - before) / static_cast<double>(state.iterations()));
}

using Event = NotchOverlayController::MouseEvent;
BENCHMARK_CAPTURE(sweep, MoveFarFromTheNotch, Event::mouseMoved, 0, 1400, 200, false);
BENCHMARK_CAPTURE(sweep, MoveInsideTheOpenPanel, Event::mouseMoved, 400, 1000, 800, true);
BENCHMARK_CAPTURE(sweep, DragAcrossTheScreen, Event::leftMouseDragged, 0, 1400, 300, false);

}  // namespace
}  // namespace vantrelle

BENCHMARK_MAIN();
