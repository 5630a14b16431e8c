#include <gtest/gtest.h>

#include "overlay/DeclaredNotch.h"
#include "overlay/NotchGeometry.h"
#include "overlay/NotchState.h"

namespace vantrelle {
namespace {

ScreenInfo screen(std::string name, Rect frame, double topBar) {
    return {std::move(name), frame, Rect{frame.x, frame.y, frame.width, frame.height - topBar}, std::nullopt,
            std::nullopt};
}

TEST(NotchGeometry, ASimulatedNotchSitsOnTheMainScreenAtTheTopBarsHeightOrTheMinimum) {
    const auto low = NotchGeometry::detect({screen("a", Rect{0, 0, 1512, 982}, 24)}, 0, true, 185, 32);
    ASSERT_TRUE(low);
    EXPECT_TRUE(low->isSimulated);
    EXPECT_EQ(low->notchRect, (Rect{663.5, 950, 185, 32}));
    const auto tall = NotchGeometry::detect(
        {screen("a", Rect{0, 0, 1000, 800}, 0), screen("b", Rect{1000, 0, 2000, 1000}, 37)}, 1, true, 185,
        32);
    EXPECT_EQ(tall->screen.name, "b");
    EXPECT_EQ(tall->notchRect, (Rect{1907.5, 963, 185, 37}));
    EXPECT_FALSE(NotchGeometry::detect({}, std::nullopt, true, 185, 32));
    EXPECT_FALSE(NotchGeometry::detect({screen("a", Rect{0, 0, 1000, 800}, 0)}, 0, false, 185, 32));
}

TEST(NotchGeometry, ExpandedWidthIsTwoThirdsOfTheScreenWithinBounds) {
    EXPECT_EQ(NotchLayout::expandedSizeFor(1000), (Size{760, 340}));
    EXPECT_EQ(NotchLayout::expandedSizeFor(2000), (Size{1040, 340}));
    EXPECT_DOUBLE_EQ(NotchLayout::expandedSizeFor(1250).width, 825);   // 825 exactly
    EXPECT_DOUBLE_EQ(NotchLayout::expandedSizeFor(1575).width, 1040);  // 1039.5 rounds up, then the cap
}

TEST(NotchGeometry, HitRectanglesReachPastTheNotch) {
    const Rect notch{663.5, 950, 185, 32};
    EXPECT_DOUBLE_EQ(collapsedHitRect(notch, false).width, 185 + 12);
    EXPECT_DOUBLE_EQ(collapsedHitRect(notch, true).width, 185 + 148);
    EXPECT_DOUBLE_EQ(collapsedHitRect(notch, false).maxY(), 982) << "never above the screen edge";

    const Rect open = expandedHitRect(notch, Size{998, 340}, true);
    EXPECT_EQ(open, (Rect{247, 572, 1018, 410}));
    EXPECT_TRUE(open.contains({756, 981.9}));
    EXPECT_FALSE(open.contains({756, 982}));
}

TEST(NotchGeometry, PanelHangsFromTheTopCentredOnTheNotch) {
    NotchGeometry g{ScreenInfo{}, Rect{663.5, 950, 185, 32}, true};
    EXPECT_EQ(g.panelFrame(760), (Rect{756 - 408, 982 - 426, 816, 426}));
}

TEST(DeclaredNotch, ParsesFourNumbersAndRejectsAnythingElse) {
    EXPECT_EQ(parseDeclaredNotch("663, 0, 185,32"), (Rect{663, 0, 185, 32}));
    for (const char* bad : {"663,0,185", "663,0,185,32,1", "a,b,c,d", "0,0,0,32", ""})
        EXPECT_FALSE(parseDeclaredNotch(bad)) << bad;
}

// A notched screen wins over the main one.
TEST(DeclaredNotch, GivesItsScreenTheSideStripsSoDetectionFindsIt) {
    std::vector<ScreenInfo> screens{{"HDMI-1", Rect{0, 0, 1920, 1080}, Rect{0, 0, 1920, 1080}, {}, {}},
                                    {"eDP-1", Rect{1920, 0, 1512, 982}, Rect{1920, 0, 1512, 982}, {}, {}}};
    applyDeclaredNotch(screens, Rect{1920 + 663, 950, 185, 32});
    EXPECT_FALSE(screens[0].auxiliaryTopLeftArea);
    const auto g = NotchGeometry::detect(screens, 0, true, 185, 32);
    ASSERT_TRUE(g);
    EXPECT_FALSE(g->isSimulated);
    EXPECT_EQ(g->notchRect, (Rect{1920 + 663, 950, 185, 32}));

    std::vector<ScreenInfo> single{screens[1]};
    single[0].auxiliaryTopLeftArea.reset();
    single[0].auxiliaryTopRightArea.reset();
    applyDeclaredNotch(single, Rect{2583, 900, 185, 32});  // not at the top edge
    EXPECT_FALSE(single[0].auxiliaryTopLeftArea);
}

}  // namespace
}  // namespace vantrelle
