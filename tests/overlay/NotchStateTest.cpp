#include <gtest/gtest.h>

#include "catalog/AppSettings.h"
#include "fakes/FakeLoginItem.h"
#include "overlay/CollapsedPresentation.h"
#include "overlay/IconGlyphs.h"
#include "overlay/NotchState.h"
#include "platform/VirtualScheduler.h"
#include "support/MemoryDefaultsStore.h"

namespace vantrelle {
namespace {

TEST(NotchTab, EveryToolReadsBackFromItsNameAndHasAGlyph) {
    EXPECT_FALSE(notchTabFromRaw("MenuBar")) << "names are case-sensitive";
    for (NotchTab tab : allNotchTabs()) {
        EXPECT_EQ(notchTabFromRaw(rawValue(tab)), tab);
        EXPECT_TRUE(hasIconGlyph(info(tab).icon)) << info(tab).icon << " has no glyph in the icon font";
    }
}

TEST(NotchState, NotifiesOnlyRealChangesAndCollapseStartsAsANoOp) {
    NotchState state;
    int changes = 0;
    auto c = state.changed.connect([&](NotchState::Field) { ++changes; });
    state.setTab(NotchTab::dashboard);
    state.setHeaderSubtitle(std::nullopt);
    EXPECT_EQ(changes, 0);
    state.setTab(NotchTab::calc);
    state.setHeaderSubtitle("3 sessions");
    EXPECT_EQ(changes, 2);
    state.collapse();  // nothing attached yet
}

TEST(NotchState, DisablingTheShowingToolMovesToTheFirstEnabledOne) {
    MemoryDefaultsStore defaults;
    NotificationCenter notifications;
    testing::FakeLoginItem login;
    VirtualScheduler scheduler;
    AppSettings settings(defaults, notifications, login, scheduler);
    NotchState state;
    state.setTab(NotchTab::notes);
    settings.setEnabled(NotchTab::notes, false);
    ensureValidTab(state, settings);
    EXPECT_EQ(state.tab(), NotchTab::dashboard);

    state.setTab(NotchTab::game);  // a hook may show a disabled tool until the panel checks
    settings.setEnabled(NotchTab::game, false);
    EXPECT_EQ(state.tab(), NotchTab::game);
    ensureValidTab(state, settings);
    EXPECT_EQ(state.tab(), NotchTab::dashboard);
}

TEST(CollapsedPresentation, TimersAndCountsFormatAsTheNotchShowsThem) {
    EXPECT_EQ(compactStopwatch(3599.9), "59:59");
    EXPECT_EQ(compactStopwatch(3600), "1:00:00");
    EXPECT_EQ(compactStopwatch(37 * 3600 + 61), "37:01:01");
    EXPECT_EQ(timerDigits(1499.2), "25:00");
    EXPECT_EQ(timerDigits(0.2), "0:01");
    EXPECT_EQ(timerDigits(-3), "0:00");
    EXPECT_EQ(
        collapsedCells(LiveActivity{LiveActivity::AI{"api", 12'449, 0.2, true}}, Date{0}, {}).trailingText,
        "12.4k");
}

TEST(CollapsedPresentation, EveryKindFillsBothSides) {
    const Date now{1'800'000'000};
    const auto cells = [&](LiveActivity::Payload payload, const TimerReadings& timers = {}) {
        return collapsedCells(LiveActivity{std::move(payload)}, now, timers);
    };
    const auto meeting = cells(LiveActivity::Meeting{"Standup", now + 272});
    EXPECT_EQ(meeting.trailingText, "4:32");
    EXPECT_TRUE(meeting.ticksEverySecond);
    EXPECT_EQ(cells(LiveActivity::Meeting{"Late", now - 5}).trailingText, "now");
    const auto alert = cells(LiveActivity::AgentAlert{"api", AgentAlertKind::waiting});
    EXPECT_TRUE(alert.leadingIsAgentMark);
    EXPECT_EQ(alert.trailingText, "Waiting");
    const auto ai = cells(LiveActivity::AI{"api", 0, 0, false});
    EXPECT_EQ(ai.trailingText, "AI");
    EXPECT_FALSE(ai.pulse);
    EXPECT_EQ(cells(LiveActivity::Download{"a.zip", std::nullopt}).trailingSymbol, "checkmark.circle.fill");
    EXPECT_EQ(cells(LiveActivity::Download{"a.zip", 0.4}).ring, 0.4);
    EXPECT_EQ(cells(LiveActivity::Battery{80, true}).trailingText, "80%");

    TimerReadings timers;
    timers.pomodoroRemaining = 61;
    timers.pomodoroInBreak = true;
    timers.pomodoroPaused = true;
    timers.pomodoroProgress = 0.5;
    timers.stopwatchElapsed = 3725;
    const auto pomodoro = cells(LiveActivity::Pomodoro{}, timers);
    EXPECT_EQ(pomodoro.leadingSymbol, "cup.and.saucer.fill") << "a break shows the cup";
    EXPECT_EQ(pomodoro.trailingText, "1:01");
    EXPECT_TRUE(pomodoro.dimmed);
    EXPECT_EQ(pomodoro.ring, 0.5);
    EXPECT_EQ(cells(LiveActivity::Stopwatch{}, timers).trailingText, "1:02:05");
    EXPECT_EQ(cells(LiveActivity::QuickTimer{}).trailingText, "--:--");

    for (const auto& symbol :
         {"video.fill", "battery.25percent", "battery.100percent", "bolt.fill", "arrow.down.circle.fill",
          "checkmark.circle.fill", "brain.head.profile", "cup.and.saucer.fill", "hourglass", "stopwatch.fill",
          "gearshape.fill", "arrow.down.right.and.arrow.up.left", "rectangle.topthird.inset.filled"}) {
        EXPECT_TRUE(hasIconGlyph(symbol)) << symbol;
    }
}

}  // namespace
}  // namespace vantrelle
