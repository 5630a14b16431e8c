#include "overlay/OverlayFixture.h"

namespace vantrelle::testing {
namespace {

using OverlayHover = OverlayFixture;

TEST_F(OverlayHover, OpensAfterTheHoverDelayCountedFromTheFirstEvent) {
    auto& overlay = started();
    move(notchCentre);
    scheduler.advance(0.1);
    move(farAway);  // leaving before the delay cancels the open
    EXPECT_FALSE(overlay.isOpenPending());
    scheduler.advance(1);
    EXPECT_FALSE(expanded());

    move(notchCentre);
    scheduler.advance(0.1);
    move(notchCentre);  // later events do not restart the delay
    scheduler.advance(0.09);
    EXPECT_FALSE(expanded());
    scheduler.advance(0.02);
    EXPECT_TRUE(expanded());
    EXPECT_FALSE(windows.ignoresMouse);
    EXPECT_TRUE(windows.tookFocus);

    // No delay opens at the next turn, not inside the event.
    overlay.setExpanded(false, "test");
    settings.setHoverDelay(0);
    move(notchCentre);
    EXPECT_FALSE(expanded());
    scheduler.runUntilIdle();
    EXPECT_TRUE(expanded());
}

TEST_F(OverlayHover, HoverDuringACallNeverOpensButAClickDoes) {
    auto& overlay = started();
    move(notchCentre);
    startCall();
    move(notchCentre);
    EXPECT_FALSE(overlay.isOpenPending()) << "a call starting while the open is pending cancels it";
    scheduler.advance(1);
    EXPECT_FALSE(expanded());
    click(notchCentre);
    EXPECT_TRUE(expanded());
}

TEST_F(OverlayHover, LeavingClosesAfterExactlyThirtyFiveHundredthsButADragOnlyOnAClick) {
    auto& overlay = started();
    click(notchCentre);
    move(farAway);
    scheduler.advance(0.3);
    move(insidePanel);  // back in time: stays open
    EXPECT_FALSE(overlay.isClosePending());
    scheduler.advance(1);
    EXPECT_TRUE(expanded());

    move(farAway);
    scheduler.advance(0.34);
    EXPECT_TRUE(expanded());
    scheduler.advance(0.01);
    EXPECT_FALSE(expanded());
    EXPECT_TRUE(windows.ignoresMouse);

    // A drag that carries no files neither closes nor changes the tool; a click outside closes at once.
    click(notchCentre);
    overlay.state().setTab(NotchTab::notes);
    drag(farAway);
    scheduler.advance(1);
    EXPECT_TRUE(expanded());
    EXPECT_EQ(overlay.state().tab(), NotchTab::notes);
    click(farAway);
    EXPECT_FALSE(expanded());
}

TEST_F(OverlayHover, FileDragTurnsToTheShelfAnywhereButOpensOnlyOverTheNotch) {
    auto& overlay = started();
    click(farAway);  // the mouse goes down in the file manager
    pasteboard.beginFileDrag();
    drag(farAway);
    EXPECT_EQ(overlay.state().tab(), NotchTab::shelf);
    EXPECT_FALSE(expanded());

    overlay.state().setTab(NotchTab::notes);  // the user's own choice during the drag stays
    drag(notchCentre);
    EXPECT_TRUE(expanded());
    EXPECT_EQ(overlay.state().tab(), NotchTab::notes);
}

TEST_F(OverlayHover, MenuBarToolClicksAreIgnoredForAWhile) {
    started();
    services.ignoreClicksUntil = scheduler.now() + 0.5;
    click(notchCentre);
    EXPECT_FALSE(expanded());
    scheduler.advance(0.5);
    click(notchCentre);
    EXPECT_TRUE(expanded());
}

}  // namespace
}  // namespace vantrelle::testing
