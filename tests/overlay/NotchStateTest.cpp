#include <gtest/gtest.h>

#include "fakes/AppBasics.h"
#include "overlay/CollapsedPresentation.h"
#include "overlay/IconGlyphs.h"
#include "overlay/NotchState.h"

namespace vantrelle {
namespace {

TEST(NotchTab, EveryToolReadsBackFromItsNameAndHasAGlyph) {
    for (NotchTab tab : allNotchTabs()) {
        EXPECT_EQ(notchTabFromRaw(rawValue(tab)), tab);
        EXPECT_TRUE(hasIconGlyph(info(tab).icon)) << info(tab).icon << " has no glyph in the icon font";
    }
}

TEST(NotchState, DisablingTheShowingToolMovesToTheFirstEnabledOne) {
    testing::AppBasics basics;
    NotchState state;
    state.setTab(NotchTab::game);  // a hook may show a disabled tool until the panel checks
    basics.settings.setEnabled(NotchTab::game, false);
    ensureValidTab(state, basics.settings);
    EXPECT_EQ(state.tab(), NotchTab::dashboard);
}

TEST(CollapsedPresentation, TimersAndCountsFormatAsTheNotchShowsThem) {
    EXPECT_EQ(compactStopwatch(3599.9), "59:59");
    EXPECT_EQ(compactStopwatch(3600), "1:00:00");
    EXPECT_EQ(compactStopwatch(37 * 3600 + 61), "37:01:01");
    EXPECT_EQ(timerDigits(1499.2), "25:00");
    EXPECT_EQ(timerDigits(0.2), "0:01");
    EXPECT_EQ(timerDigits(-3), "0:00");
}

TEST(CollapsedPresentation, EveryKindFillsItsTrailingSideWithAGlyphThatExists) {
    const Date now{1'800'000'000};
    TimerReadings timers;
    timers.pomodoroRemaining = 61;
    timers.pomodoroInBreak = true;
    timers.stopwatchElapsed = 3725;
    const auto cells = [&](LiveActivity::Payload payload) {
        return collapsedCells(LiveActivity{std::move(payload)}, now, timers);
    };
    const struct {
        const char* name;
        CollapsedCells cells;
        std::string trailing;
    } rows[] = {
        {"meeting", cells(LiveActivity::Meeting{"Standup", now + 272}), "4:32"},
        {"agent alert", cells(LiveActivity::AgentAlert{"api", AgentAlertKind::waiting}), "Waiting"},
        {"AI tokens", cells(LiveActivity::AI{"api", 12'449, 0.2, true}), "12.4k"},
        {"download done", cells(LiveActivity::Download{"a.zip", std::nullopt}), ""},
        {"battery low", cells(LiveActivity::Battery{20, false}), "20%"},
        {"pomodoro break", cells(LiveActivity::Pomodoro{}), "1:01"},
        {"stopwatch", cells(LiveActivity::Stopwatch{}), "1:02:05"},
        {"quick timer unknown", cells(LiveActivity::QuickTimer{}), "--:--"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.cells.trailingText, row.trailing);
        for (const auto& symbol : {row.cells.leadingSymbol, row.cells.trailingSymbol})
            EXPECT_TRUE(symbol.empty() || hasIconGlyph(symbol)) << symbol;
    }
    EXPECT_EQ(cells(LiveActivity::Pomodoro{}).leadingSymbol, "cup.and.saucer.fill")
        << "a break shows the cup";
    EXPECT_EQ(cells(LiveActivity::Download{"a.zip", 0.4}).ring, 0.4);
}

}  // namespace
}  // namespace vantrelle
