#include "overlay/OverlayFixture.h"

namespace vantrelle::testing {
namespace {

using OverlayQuiet = OverlayFixture;

TEST_F(OverlayQuiet, FullScreenHidesOnlyWhenAskedAndComesBack) {
    auto& overlay = started();
    click(notchCentre);
    fullScreen = true;
    scheduler.advance(QuietMonitor::kPollInterval);
    EXPECT_FALSE(overlay.hiddenForFullScreen()) << "hideInFullScreen is off by default";

    settings.setHideInFullScreen(true);  // posts the geometry notification, which re-applies quiet
    EXPECT_TRUE(overlay.hiddenForFullScreen());
    EXPECT_FALSE(expanded());
    EXPECT_FALSE(windows.visible);

    overlay.setExpanded(true, "unspecified");
    click(notchCentre);
    EXPECT_FALSE(expanded()) << "a hidden overlay opens for nothing and keeps nothing for later";
    fullScreen = false;
    scheduler.advance(QuietMonitor::kPollInterval);
    EXPECT_FALSE(overlay.hiddenForFullScreen());
    EXPECT_TRUE(windows.visible);
    EXPECT_FALSE(expanded());
}

TEST_F(OverlayQuiet, FullScreenCallHidesASimulatedNotchButNotARealOne) {
    auto& overlay = started();
    fullScreen = true;
    startCall();
    EXPECT_TRUE(overlay.hiddenForFullScreen());

    ScreenInfo notched = laptopScreen();
    notched.auxiliaryTopLeftArea = Rect{0, 950, 650, 32};
    notched.auxiliaryTopRightArea = Rect{862, 950, 650, 32};
    screens.list = {notched};
    fullScreen = false;
    overlay.quiet().refresh();
    overlay.rebuild();
    EXPECT_FALSE(overlay.state().isSimulated());
    fullScreen = true;
    overlay.quiet().refresh();
    EXPECT_FALSE(overlay.hiddenForFullScreen());
}

TEST_F(OverlayQuiet, NoScreenOrNoNotchOrdersThePanelsOutAndKeepsTheLastGeometry) {
    auto& overlay = started();
    const auto before = overlay.geometry();
    screens.list.clear();
    overlay.rebuild();
    EXPECT_FALSE(windows.visible);
    EXPECT_EQ(overlay.geometry(), before);

    screens.list = {laptopScreen()};
    overlay.rebuild();
    ASSERT_TRUE(windows.visible);
    settings.setSimulateNotch(false);
    EXPECT_FALSE(windows.visible) << "no real notch and none simulated";
}

TEST_F(OverlayQuiet, StartLaysOutThePanelsFromTheGeometryAndFollowsTheAppearance) {
    auto& overlay = started();
    EXPECT_EQ(windows.dropZoneFrame, (Rect{663.5, 950, 185, 32}));
    EXPECT_EQ(windows.panelFrame, (Rect{756 - 527, 982 - 426, 1054, 426}));
    EXPECT_EQ(overlay.state().panelSize(), (Size{998, 340}));
    EXPECT_EQ(services.serviceStarts, 1);

    click(notchCentre);
    overlay.state().collapse();  // the state's collapse reaches the controller
    EXPECT_FALSE(expanded());
    settings.setGlassPanel(true);
    settings.setAppearance(Appearance::light);
    EXPECT_TRUE(windows.glass);
    EXPECT_EQ(windows.appearance, Appearance::light);
}

TEST_F(OverlayQuiet, ShowDockChangesTheHitAreaAtTheNextEvent) {
    auto& overlay = started();
    const Rect withDock = overlay.expandedHitRect();
    settings.setShowDock(false);
    const Rect without = overlay.expandedHitRect();
    EXPECT_DOUBLE_EQ(withDock.height - without.height, 58);
    EXPECT_DOUBLE_EQ(withDock.maxY(), 982);
}

TEST_F(OverlayQuiet, HoverHookRunsItsScriptAndQuits) {
    captureLog();
    environment.set("VANTRELLE_TEST_HOVER", "1");
    started();
    scheduler.advance(3.0 + 11 * 0.05 + 0.2);
    EXPECT_TRUE(expanded());
    scheduler.advance(5.0 - scheduler.now().seconds + 1'800'000'000.0);
    EXPECT_TRUE(expanded()) << "timer finished reopens on focus";
    scheduler.advance(2.0);
    EXPECT_TRUE(services.terminated);
    const auto text = log();
    for (const char* step : {"test: hover over the notch (call=false)", "overlay: collapse (test reset)",
                             "test: timer finished (call=false)", "test: done"})
        EXPECT_NE(text.find(step), std::string::npos) << step;
}

}  // namespace
}  // namespace vantrelle::testing
