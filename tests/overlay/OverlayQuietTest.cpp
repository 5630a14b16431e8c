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
    EXPECT_FALSE(windows.visible);
    click(notchCentre);
    fullScreen = false;
    scheduler.advance(QuietMonitor::kPollInterval);
    EXPECT_TRUE(windows.visible);
    EXPECT_FALSE(expanded()) << "a hidden overlay opens for nothing and keeps nothing for later";
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

TEST_F(OverlayQuiet, StartLaysOutThePanelsFromTheGeometryAndCollapseReachesTheController) {
    auto& overlay = started();
    EXPECT_EQ(windows.dropZoneFrame, (Rect{663.5, 950, 185, 32}));
    click(notchCentre);
    overlay.state().collapse();  // the state's collapse reaches the controller
    EXPECT_FALSE(expanded());
}

}  // namespace
}  // namespace vantrelle::testing
