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
    EXPECT_EQ(low.value().notchRect, (Rect{663.5, 950, 185, 32}));
    const auto tall = NotchGeometry::detect({screen("b", Rect{1000, 0, 2000, 1000}, 37)}, 0, true, 185, 32);
    EXPECT_EQ(tall.value().notchRect, (Rect{1907.5, 963, 185, 37}));
    EXPECT_FALSE(NotchGeometry::detect({}, std::nullopt, true, 185, 32));
    EXPECT_FALSE(NotchGeometry::detect({screen("a", Rect{0, 0, 1000, 800}, 0)}, 0, false, 185, 32));
}

TEST(NotchGeometry, PanelAndHitRectanglesHangFromTheTopCentredOnTheNotch) {
    EXPECT_EQ(NotchLayout::expandedSizeFor(1000), (Size{760, 340}));   // the minimum
    EXPECT_DOUBLE_EQ(NotchLayout::expandedSizeFor(1575).width, 1040);  // 1039.5 rounds up, then the cap
    const Rect notch{663.5, 950, 185, 32};
    EXPECT_EQ((NotchGeometry{ScreenInfo{}, notch, true}.panelFrame(760)),
              (Rect{756 - 408, 982 - 426, 816, 426}));
    EXPECT_DOUBLE_EQ(collapsedHitRect(notch, true).width, 185 + 148);
    EXPECT_DOUBLE_EQ(collapsedHitRect(notch, false).maxY(), 982) << "never above the screen edge";
    const Rect open = expandedHitRect(notch, Size{998, 340}, true);
    EXPECT_EQ(open, (Rect{247, 572, 1018, 410}));
    EXPECT_FALSE(open.contains({756, 982}));
}

TEST(DeclaredNotch, ParsesFourNumbersAndRejectsAnythingElse) {
    EXPECT_EQ(parseDeclaredNotch("663, 0, 185,32"), (Rect{663, 0, 185, 32}));
    for (const char* bad : {"663,0,185", "663,0,185,32,1", "a,b,c,d", "0,0,0,32", ""})
        EXPECT_FALSE(parseDeclaredNotch(bad)) << bad;
}

}  // namespace
}  // namespace vantrelle
