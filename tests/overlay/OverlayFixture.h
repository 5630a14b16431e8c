#pragma once

#include <gtest/gtest.h>

#include <optional>

#include "fakes/AppBasics.h"
#include "fakes/FakeOverlayPorts.h"
#include "overlay/NotchOverlayController.h"

namespace vantrelle::testing {

// A 1512 x 982 laptop screen with a 24-point top bar: the simulated notch is 185 x 32 at the top centre.
inline ScreenInfo laptopScreen() {
    return ScreenInfo{"eDP-1", Rect{0, 0, 1512, 982}, Rect{0, 0, 1512, 958}, std::nullopt, std::nullopt};
}

class OverlayFixture : public ::testing::Test, protected testing::AppBasics {
protected:
    using Event = NotchOverlayController::MouseEvent;

    OverlayFixture() { screens.list = {laptopScreen()}; }

    NotchOverlayController& make() {
        controller.emplace(NotchOverlayController::Dependencies{
            settings, activities, notifications, scheduler, scheduler, environment, windows, screens,
            pasteboard, sounds, services,
            QuietMonitor::Probes{[this](const std::optional<ScreenInfo>&) { return fullScreen; },
                                 [this] { return cameraRunning; }},
            camera});
        return *controller;
    }
    NotchOverlayController& started() {
        make().start();
        return *controller;
    }

    void move(Point p) { controller->handleMouse(Event::mouseMoved, p); }
    void click(Point p) { controller->handleMouse(Event::leftMouseDown, p); }
    void drag(Point p) { controller->handleMouse(Event::leftMouseDragged, p); }
    [[nodiscard]] bool expanded() const { return controller->state().isExpanded(); }

    // Puts the pointer in a call and lets the quiet monitor notice.
    void startCall() {
        cameraRunning = true;
        controller->quiet().refresh();
    }

    static constexpr Point notchCentre{756, 966};
    static constexpr Point insidePanel{756, 700};
    static constexpr Point farAway{100, 100};

    MapEnvironment environment;
    RecordingWindows windows;
    FakeScreens screens;
    FakePasteboard pasteboard;
    RecordingSounds sounds;
    FakeServices services;
    CameraUse camera;
    bool fullScreen = false;
    bool cameraRunning = false;
    std::optional<NotchOverlayController> controller;
};

}  // namespace vantrelle::testing
