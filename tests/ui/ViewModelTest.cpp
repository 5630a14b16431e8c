#include <gtest/gtest.h>

#include "ShelfViewModel.h"
#include "ShellModel.h"
#include "SupportViewModel.h"
#include "TodayViewModel.h"
#include "ViewModelFixture.h"
#include "fakes/FakeCalendarSource.h"
#include "fakes/FakeImageCodec.h"
#include "fakes/ManualQueue.h"

namespace vantrelle::testing {
namespace {

using ViewModels = ViewModelFixture;

TEST_F(ViewModels, ShellFollowsTheActivityAndSignalsOnlyWhatAViewSees) {
    auto& overlay = started();
    ShellModel shell(overlay, settings, activities, scheduler);
    int changes = 0;
    QObject::connect(&shell, &ShellModel::activityChanged, &shell, [&] { ++changes; });
    const qreal notch = shell.notchWidth();
    EXPECT_EQ(shell.collapsedWidth(), notch);

    activities.set(LiveActivity{LiveActivity::Meeting{"Standup", scheduler.now() + 125}},
                   LiveActivityCenter::Source::meeting);
    EXPECT_EQ(shell.activityKind(), "meeting");
    EXPECT_EQ(shell.trailingText(), "2:05");
    EXPECT_EQ(shell.collapsedWidth(), notch + 2 * shell.activityWing());
    EXPECT_EQ(changes, 1);

    activities.set(LiveActivity{LiveActivity::AgentAlert{"api", AgentAlertKind::approval}},
                   LiveActivityCenter::Source::agentAlert);
    EXPECT_TRUE(shell.leadingIsAgentMark());
    EXPECT_EQ(changes, 2);
    // The same alert again changes nothing a view would see.
    activities.set(LiveActivity{LiveActivity::AgentAlert{"api", AgentAlertKind::approval}},
                   LiveActivityCenter::Source::agentAlert);
    EXPECT_EQ(changes, 2);

    // A focus timer restored at start, before the focus models are wired: its digits show as soon as
    // they are, not at the next second's tick.
    activities.set(std::nullopt, LiveActivityCenter::Source::agentAlert);
    activities.set(std::nullopt, LiveActivityCenter::Source::meeting);
    activities.set(LiveActivity{LiveActivity::Pomodoro{}}, LiveActivityCenter::Source::pomodoro);
    EXPECT_EQ(shell.trailingText(), "--:--");
    shell.setTimerReadings([] {
        TimerReadings readings;
        readings.pomodoroRemaining = 1500;
        return readings;
    });
    EXPECT_EQ(shell.trailingText(), "25:00");
}

TEST_F(ViewModels, QuickTimerAndStopwatchSignalTheirOwnChanges) {
    int focusChanges = 0, quickChanges = 0;
    QObject::connect(&focusView, &FocusViewModel::changed, &focusView, [&] { ++focusChanges; });
    QObject::connect(&focusView, &FocusViewModel::quickChanged, &focusView, [&] { ++quickChanges; });
    focusView.startQuick(3);
    scheduler.advance(30);
    EXPECT_EQ(focusView.quickTime(), "02:30");
    EXPECT_GT(quickChanges, 0);
    EXPECT_EQ(focusChanges, 0) << "an idle focus timer costs its views nothing";

    focusView.startPauseStopwatch();
    scheduler.advance(4.25);
    focusView.lapOrResetStopwatch();
    EXPECT_EQ(focusView.laps(), QStringList{QStringLiteral("Lap 1  00:04.2")});
    focusView.startPauseStopwatch();
    focusView.lapOrResetStopwatch();
    EXPECT_EQ(focusView.stopwatchTime(), "00:00.0");
    EXPECT_TRUE(focusView.laps().isEmpty());
}

TEST_F(ViewModels, ShellListsEnabledToolsAndTilesAndFallsBackWhenTheShowingToolIsTurnedOff) {
    auto& overlay = started();
    ShellModel shell(overlay, settings, activities, scheduler);
    auto& tabs = *shell.tabs();
    shell.selectTab(QStringLiteral("notes"));
    shell.selectTab(QStringLiteral("no-such-tool"));
    EXPECT_EQ(shell.tab(), "notes");
    EXPECT_EQ(role(tabs, shell.tabIndex(), "raw"), "notes");
    settings.setDashboardTiles({DashTile::notes, DashTile::aiUsage, DashTile::launcher});
    auto& tiles = *shell.dashboardTiles();
    EXPECT_EQ(role(tiles, 0, "tool"), "notes");
    EXPECT_EQ(role(tiles, 2, "tool"), "");  // a tile without a tool of its own opens nothing

    const int shown = tabs.count();
    settings.setEnabled(NotchTab::notes, false);
    EXPECT_EQ(shell.tab(), "dashboard");
    EXPECT_EQ(tabs.count(), shown - 1);
    EXPECT_EQ(role(tiles, 0, "tool"), "") << "a tool turned off is not opened from its tile";
}

TEST_F(ViewModels, UsagePanelFillsItsListsWithoutResetsAndSwitchesTheAlertsHook) {
    auto& view = usageView;
    scheduler.runUntilIdle();
    EXPECT_FALSE(view.block().open);
    // The figures arrive: the lists fill without a reset, so the views keep their delegates.
    int resets = 0;
    QObject::connect(view.sessions(), &QAbstractItemModel::modelReset, &view, [&] { ++resets; });
    usage.applyDemo();
    EXPECT_EQ(resets, 0);
    EXPECT_TRUE(view.block().open);
    EXPECT_TRUE(role(*view.days(), 6, "isToday").toBool());
    EXPECT_EQ(view.sessions()->count(), static_cast<int>(usage.sessions().size()));

    view.setHooksInstalled(true);
    scheduler.runUntilIdle();
    EXPECT_TRUE(view.hooksInstalled());
}

TEST_F(ViewModels, CalculatorListsTheNewestLineFirstAndRecallsByThatIndex) {
    auto& view = calcView;
    view.setInput(QStringLiteral("24*7"));
    EXPECT_TRUE(view.commit());
    view.setInput(QStringLiteral("ans / 2"));
    EXPECT_TRUE(view.commit());
    const auto& entries = *view.entries();
    ASSERT_EQ(entries.count(), 2);
    EXPECT_EQ(role(entries, 0, "expression"), "ans / 2");
    EXPECT_EQ(role(entries, 0, "entryIndex"), 1);
    EXPECT_EQ(role(entries, 1, "result"), "168");
    view.recall(0);
    EXPECT_EQ(view.input(), "24*7");
}

TEST_F(ViewModels, ShelfListsItemsShowsAConversionBusyAndItsMessage) {
    TempDir dir;
    FakeImageCodec codec;
    ManualQueueFactory manualQueues;
    ImageConverter converter(codec, std::nullopt, dir / "Converted");
    ShelfStore store(
        {dir / "shelf.json", scheduler, scheduler, manualQueues, activities, converter, false, {}});
    ShelfViewModel view(store);
    const auto photo = dir.write("files/my photo.png", "p");
    codec.declare(photo, ImageFileType::png, 100, 100);
    store.add({dir.write("files/notes.txt", "n"), photo});

    auto& items = *view.items();
    ASSERT_EQ(items.count(), 2);
    EXPECT_EQ(role(items, 0, "url").toString().toStdString(),
              "file://" + (dir / "files/my%20photo.png").string());
    EXPECT_EQ(role(items, 0, "isImage"), true);

    const QString id = role(items, 0, "itemId").toString();
    view.convert(id, QStringLiteral("jpg"));
    EXPECT_EQ(role(items, 0, "busy"), true);
    manualQueues.runAll();
    scheduler.runUntilIdle();
    EXPECT_EQ(role(items, 0, "busy"), false);
    EXPECT_TRUE(view.message().startsWith(QStringLiteral("Saved my photo.jpg")));

    std::filesystem::remove(photo);
    view.remove(role(items, 1, "itemId").toString());
    EXPECT_EQ(role(items, 0, "url"), QString());  // gone: the view shows a generic icon
}

TEST_F(ViewModels, TheTodayTileOffersToJoinTheNextCallAndRecordsTheJoin) {
    FakeCalendarSource source;
    auto event = [&](std::string title, double in, std::string location) {
        CalendarEvent e;
        e.identifier = title;
        e.title = std::move(title);
        e.start = scheduler.now() + in;
        e.end = e.start + 1800;
        e.location = std::move(location);
        return e;
    };
    source.calendar = {event("Offsite", -3600, "https://zoom.us/j/1"), event("Lunch", 600, ""),
                       event("Skipped", 900, "https://meet.google.com/abc-defg-hij"),
                       event("Review", 1200, "Room 4, https://zoom.us/j/5550123456")};
    source.calendar[0].allDay = true;
    source.calendar[2].attendees = {{"me@example.com", "", ParticipantStatus::declined, true}};
    CalendarService calendar(
        {source, settings, activities, notifications, scheduler, scheduler, environment, false, {}});
    bool opens = false;
    int joins = 0;
    TodayViewModel view(
        calendar, [&](const QString&) { return opens; }, [&] { ++joins; });
    calendar.refreshIfAuthorized();
    EXPECT_EQ(view.joinTitle(), "Review") << "all-day, link-less and declined events are passed over";
    EXPECT_EQ(view.joinUrl(), "https://zoom.us/j/5550123456");

    view.join(view.joinUrl());
    EXPECT_EQ(joins, 0) << "a link the desktop couldn't open is no join";
    opens = true;
    view.join(view.joinUrl());
    EXPECT_EQ(joins, 1);

    source.calendar.pop_back();
    calendar.refreshIfAuthorized();
    EXPECT_EQ(view.joinUrl(), QString());
}

TEST_F(ViewModels, SupportOpensOnlyItsOwnFolders) {
    AppPaths paths;
    paths.dataHome = home / "data";
    paths.configHome = home / "config";
    paths.cacheHome = home / "cache";
    std::vector<QString> opened;
    SupportViewModel support(
        SupportViewModel::Dependencies{paths, "", SupportContext{"0.1.0", "xcb"}, [&](const QString& url) {
                                           opened.push_back(url);
                                           return true;
                                       }});
    support.openFolder(role(*support.folders(), 0, "raw").toString());
    ASSERT_EQ(opened.size(), 1U);
    EXPECT_TRUE(std::filesystem::is_directory(paths.dataRoot()))
        << "a folder not made yet is made to be shown";
    support.openFolder(QStringLiteral("/etc"));
    support.openDebugLog();
    EXPECT_EQ(opened.size(), 1U) << "only the folders offered, and no log to open";
}

}  // namespace
}  // namespace vantrelle::testing
