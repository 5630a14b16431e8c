#include "overlay/OverlayFixture.h"

namespace vantrelle::testing {
namespace {

using OverlayHold = OverlayFixture;

TEST_F(OverlayHold, HeadsUpOpensOnTodayWithoutFocusAndHoldsTwelveSeconds) {
    auto& overlay = started();
    notifications.post(Notifications::meetingHeadsUp);
    EXPECT_EQ(overlay.state().tab(), NotchTab::today);
    EXPECT_FALSE(windows.tookFocus);
    EXPECT_EQ(sounds.played, std::vector<std::string>{"Glass"});
    move(farAway);
    scheduler.advance(11.9);
    EXPECT_TRUE(expanded()) << "mouse-left must not close during the hold";
    scheduler.advance(0.1);
    EXPECT_FALSE(expanded());

    // Ending with the pointer inside keeps the panel; a click inside ends the hold early.
    settings.setPlaySounds(false);
    notifications.post(Notifications::meetingHeadsUp);
    move(insidePanel);
    scheduler.advance(12);
    EXPECT_TRUE(expanded());
    EXPECT_EQ(sounds.played.size(), 1u) << "sounds are off";
    move(farAway);
    scheduler.advance(0.35);
    ASSERT_FALSE(expanded());
    notifications.post(Notifications::meetingHeadsUp);
    click(insidePanel);
    EXPECT_FALSE(overlay.headsUpUntil().has_value());
    move(farAway);
    scheduler.advance(0.35);
    EXPECT_FALSE(expanded());
}

TEST_F(OverlayHold, HeadsUpIsSkippedAndLoggedWhenOpenInACallOrHidden) {
    captureLog();
    auto& overlay = started();
    click(notchCentre);
    overlay.state().setTab(NotchTab::notes);
    notifications.post(Notifications::meetingHeadsUp);
    EXPECT_EQ(overlay.state().tab(), NotchTab::notes);
    overlay.setExpanded(false, "test");

    startCall();
    notifications.post(Notifications::meetingHeadsUp);
    EXPECT_FALSE(expanded());

    cameraRunning = false;
    settings.setHideInFullScreen(true);
    fullScreen = true;
    overlay.quiet().refresh();
    notifications.post(Notifications::meetingHeadsUp);
    EXPECT_FALSE(expanded());

    const auto text = log();
    for (const char* state :
         {"open=true call=false fullscreen=false", "open=false call=true fullscreen=false",
          "open=false call=false fullscreen=true"}) {
        EXPECT_NE(text.find("overlay: meeting heads-up skipped (" + std::string(state) + ")"),
                  std::string::npos)
            << state;
    }
}

TEST_F(OverlayHold, ShortcutsOpenForTheKeyboardAndSwitchOrToggleTools) {
    auto& overlay = started();
    services.fire(ShortcutTarget::notch());
    move(farAway);
    scheduler.advance(5);
    EXPECT_TRUE(expanded()) << "a keyboard-opened panel survives the pointer passing by";
    click(farAway);
    EXPECT_FALSE(expanded());

    services.fire(ShortcutTarget::forTool(NotchTab::calc));
    EXPECT_EQ(overlay.state().tab(), NotchTab::calc);
    services.fire(ShortcutTarget::forTool(NotchTab::notes));
    EXPECT_TRUE(expanded());
    EXPECT_EQ(overlay.state().tab(), NotchTab::notes);
    services.fire(ShortcutTarget::forTool(NotchTab::notes));
    EXPECT_FALSE(expanded());
    EXPECT_FALSE(overlay.openedByKeyboard());

    settings.setEnabled(NotchTab::music, false);
    services.fire(ShortcutTarget::forTool(NotchTab::music));
    EXPECT_FALSE(expanded());
}

TEST_F(OverlayHold, PinnedPanelIgnoresMouseLeftAndClickOutsideButNotEscape) {
    environment.set("VANTRELLE_PIN_EXPANDED", "1");
    auto& overlay = started();
    click(notchCentre);
    move(farAway);
    click(farAway);
    scheduler.advance(2);
    EXPECT_TRUE(expanded());
    EXPECT_TRUE(overlay.handleEscape());
    EXPECT_FALSE(expanded());
    EXPECT_FALSE(overlay.handleEscape()) << "Escape on a closed panel passes the key on";
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

TEST_F(OverlayHold, TimerFinishedOpensFocusUnlessInACall) {
    auto& overlay = started();
    notifications.post(Notifications::pomodoroPhaseEnded);
    EXPECT_EQ(overlay.state().tab(), NotchTab::focus);
    overlay.setExpanded(false, "test");

    startCall();
    overlay.state().setTab(NotchTab::notes);
    notifications.post(Notifications::timerFinished);
    EXPECT_FALSE(expanded());
    notifications.post(Notifications::pomodoroRevealRequested);  // the user asked: no call check
    EXPECT_TRUE(expanded());
    EXPECT_EQ(overlay.state().tab(), NotchTab::focus);
}

}  // namespace
}  // namespace vantrelle::testing
