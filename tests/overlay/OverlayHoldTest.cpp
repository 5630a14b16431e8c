#include "fakes/LogCapture.h"
#include "overlay/OverlayFixture.h"

namespace vantrelle::testing {
namespace {

using OverlayHold = OverlayFixture;

TEST_F(OverlayHold, HeadsUpOpensOnTodayWithoutFocusAndHoldsTwelveSeconds) {
    auto& overlay = started();
    notifications.post(Notifications::meetingHeadsUp);
    EXPECT_EQ(overlay.state().tab(), NotchTab::today);
    EXPECT_FALSE(windows.tookFocus);
    move(farAway);
    scheduler.advance(11.9);
    EXPECT_TRUE(expanded()) << "mouse-left must not close during the hold";
    scheduler.advance(0.1);
    EXPECT_FALSE(expanded());

    // A click inside ends the hold early.
    notifications.post(Notifications::meetingHeadsUp);
    click(insidePanel);
    move(farAway);
    scheduler.advance(0.35);
    EXPECT_FALSE(expanded());
}

TEST_F(OverlayHold, HeadsUpIsSkippedAndLoggedWhenOpenOrInACall) {
    LogCapture log;
    auto& overlay = started();
    // Already open on another tool: it stays there.
    click(notchCentre);
    overlay.state().setTab(NotchTab::notes);
    notifications.post(Notifications::meetingHeadsUp);
    EXPECT_EQ(overlay.state().tab(), NotchTab::notes);
    overlay.setExpanded(false, "test");

    startCall();
    notifications.post(Notifications::meetingHeadsUp);
    EXPECT_FALSE(expanded());
    EXPECT_NE(log.text().find("meeting heads-up skipped"), std::string::npos);
}

TEST_F(OverlayHold, ShortcutsOpenForTheKeyboardAndSwitchOrToggleTools) {
    auto& overlay = started();
    services.fire(ShortcutTarget::notch());
    move(farAway);
    scheduler.advance(5);
    EXPECT_TRUE(expanded()) << "a keyboard-opened panel survives the pointer passing by";
    click(farAway);
    EXPECT_FALSE(expanded());

    services.fire(ShortcutTarget::forTool(NotchTab::notes));
    EXPECT_EQ(overlay.state().tab(), NotchTab::notes);
    services.fire(ShortcutTarget::forTool(NotchTab::notes));  // its own shortcut again closes it
    EXPECT_FALSE(expanded());

    settings.setEnabled(NotchTab::music, false);
    services.fire(ShortcutTarget::forTool(NotchTab::music));
    EXPECT_FALSE(expanded());
}

TEST_F(OverlayHold, PlayingGameHoldsButAStepAsideCloses) {
    auto& overlay = started();
    click(notchCentre);
    overlay.state().setTab(NotchTab::game);
    services.gamePlaying = true;
    move(farAway);
    scheduler.advance(1);
    EXPECT_TRUE(expanded());
    notifications.post(Notifications::tavoRunStepAside);
    EXPECT_FALSE(expanded());

    click(notchCentre);
    services.gamePlaying = false;  // ready, paused or over
    move(farAway);
    scheduler.advance(0.35);
    EXPECT_FALSE(expanded());
}

TEST_F(OverlayHold, EscapeClosesTheOpenPanelAndPassesTheKeyOnWhenClosed) {
    auto& overlay = started();
    click(notchCentre);
    EXPECT_TRUE(overlay.handleEscape());
    EXPECT_FALSE(expanded());
    EXPECT_FALSE(overlay.handleEscape());
}

}  // namespace
}  // namespace vantrelle::testing
