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
    EXPECT_EQ(services.scheduleRefreshes, 1);
}

TEST_F(OverlayHover, ZeroDelayOpensAtTheNextTurn) {
    settings.setHoverDelay(0);
    started();
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

TEST_F(OverlayHover, HoverDuringACallOpensWhenCallsAreNotQuiet) {
    settings.setQuietDuringCalls(false);
    started();
    startCall();
    move(notchCentre);
    scheduler.advance(0.2);
    EXPECT_TRUE(expanded());
}

TEST_F(OverlayHover, LeavingClosesAfterExactlyThirtyFiveHundredthsAndAClickOutsideAtOnce) {
    auto& overlay = started();
    click(notchCentre);
    click(insidePanel);
    move(farAway);
    EXPECT_TRUE(overlay.isClosePending());
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
    EXPECT_EQ(services.cameraStops, 1);

    click(notchCentre);
    click(farAway);
    EXPECT_FALSE(expanded());
}

TEST_F(OverlayHover, NonFileDragOverAnOpenPanelNeitherClosesNorChangesTab) {
    auto& overlay = started();
    click(notchCentre);
    overlay.state().setTab(NotchTab::notes);
    drag(farAway);
    drag(Point{1500, 10});
    scheduler.advance(1);
    EXPECT_TRUE(expanded());
    EXPECT_EQ(overlay.state().tab(), NotchTab::notes);
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

    drag(farAway);  // file drags never schedule a close
    scheduler.advance(1);
    EXPECT_TRUE(expanded());
}

TEST_F(OverlayHover, StaleFilesOnThePasteboardOrTheShelfOffMakeNoFileDrag) {
    auto& overlay = started();
    pasteboard.beginFileDrag();  // an earlier drag left files on it
    click(farAway);
    drag(notchCentre);
    EXPECT_EQ(overlay.state().tab(), NotchTab::dashboard);
    EXPECT_FALSE(expanded());

    settings.setEnabled(NotchTab::shelf, false);
    click(farAway);
    pasteboard.beginFileDrag();
    drag(notchCentre);
    EXPECT_FALSE(expanded()) << "no file drag: it is treated like any drag, a hover at most";
    EXPECT_EQ(overlay.state().tab(), NotchTab::dashboard);
}

TEST_F(OverlayHover, MenuBarToolClicksAreIgnored) {
    started();
    services.ignoreClicksUntil = scheduler.now() + 0.5;
    click(notchCentre);
    EXPECT_FALSE(expanded());
    scheduler.advance(0.5);
    click(notchCentre);
    EXPECT_TRUE(expanded());
}

TEST_F(OverlayHover, EveryMoveAndDragCountsForCursorMileageEvenWhenHidden) {
    started();
    move(farAway);
    drag(farAway);
    click(farAway);
    EXPECT_EQ(services.cursorRecords, 2);
}

TEST_F(OverlayHover, ALiveActivityWidensTheTargetAndAMeetingCountdownOpensOnTheDay) {
    auto& overlay = started();
    const Point besideNotch{663.5 - 30, 966};
    move(besideNotch);
    EXPECT_FALSE(overlay.isOpenPending());
    activities.set(LiveActivity{LiveActivity::Meeting{"Standup", scheduler.now() + 240}},
                   LiveActivityCenter::Source::meeting);
    move(besideNotch);
    EXPECT_TRUE(overlay.isOpenPending());
    click(notchCentre);
    EXPECT_EQ(overlay.state().tab(), NotchTab::today);
}

}  // namespace
}  // namespace vantrelle::testing
