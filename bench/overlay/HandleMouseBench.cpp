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
        screens.list = {ScreenInfo{"eDP-1", Rect{0, 0, 1512, 982}, Rect{0, 0, 1512, 958}, std::nullopt, std::nullopt}};
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
        settings, activities, notifications, scheduler, scheduler, environment, windows, screens, pasteboard, sounds,
        services, QuietMonitor::Probes{}, camera}};
};

void reportAllocations(benchmark::State& state, std::size_t before) {
    state.counters["allocs/event"] = benchmark::Counter(
        static_cast<double>(testing::allocationCount() - before) / static_cast<double>(state.iterations()));
}

void BM_MoveFarFromTheNotch(benchmark::State& state) {
    Rig rig;
    double x = 0;
    const auto before = testing::allocationCount();
    for (auto _ : state) {
        rig.controller.handleMouse(NotchOverlayController::MouseEvent::mouseMoved, Point{x, 200});
        x = x > 1400 ? 0 : x + 1;
    }
    reportAllocations(state, before);
}
BENCHMARK(BM_MoveFarFromTheNotch);

void BM_MoveInsideTheOpenPanel(benchmark::State& state) {
    Rig rig;
    rig.controller.setExpanded(true, "bench");
    double x = 400;
    const auto before = testing::allocationCount();
    for (auto _ : state) {
        rig.controller.handleMouse(NotchOverlayController::MouseEvent::mouseMoved, Point{x, 800});
        x = x > 1000 ? 400 : x + 1;
    }
    reportAllocations(state, before);
}
BENCHMARK(BM_MoveInsideTheOpenPanel);

void BM_DragAcrossTheScreen(benchmark::State& state) {
    Rig rig;
    double x = 0;
    const auto before = testing::allocationCount();
    for (auto _ : state) {
        rig.controller.handleMouse(NotchOverlayController::MouseEvent::leftMouseDragged, Point{x, 300});
        x = x > 1400 ? 0 : x + 1;
    }
    reportAllocations(state, before);
}
BENCHMARK(BM_DragAcrossTheScreen);

}  // namespace
}  // namespace vantrelle

BENCHMARK_MAIN();
