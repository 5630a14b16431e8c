#include <gtest/gtest.h>

#include "SettingsViewModel.h"
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
    overlay.setExpanded(true, "test");
    EXPECT_EQ(shell.cornerRadius(), kExpandedCornerRadius);

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

TEST_F(ViewModels, FocusButtonsRunPauseAndRefuseWhatTheyCannotStart) {
    settings.setBreakMinutes(7);
    focusView.selectMode(QStringLiteral("shortBreak"));
    focusView.selectMode(QStringLiteral("nonsense"));
    EXPECT_EQ(focusView.mode(), "shortBreak");
    focusView.startPause();
    EXPECT_EQ(focusView.status(), "running");
    EXPECT_TRUE(focusView.inBreak());
    EXPECT_EQ(focusView.timeString(), "07:00");
    focusView.startPause();
    EXPECT_EQ(focusView.status(), "paused");
    focusView.startPause();
    EXPECT_EQ(focusView.status(), "running");

    focusView.startCustom(12);
    EXPECT_EQ(settings.customTimerMinutes(), 12);
    EXPECT_EQ(focusView.timeString(), "12:00");
    focusView.startCustom(0);
    focusView.startQuick(-1);
    EXPECT_EQ(settings.customTimerMinutes(), 12);
    EXPECT_EQ(focusView.quickStatus(), "idle");
}

TEST_F(ViewModels, QuickTimerAndStopwatchSignalTheirOwnChanges) {
    int focusChanges = 0, quickChanges = 0;
    QObject::connect(&focusView, &FocusViewModel::changed, &focusView, [&] { ++focusChanges; });
    QObject::connect(&focusView, &FocusViewModel::quickChanged, &focusView, [&] { ++quickChanges; });
    focusView.startQuick(3);
    EXPECT_EQ(focusView.quickLabel(), "3 min");
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
    EXPECT_TRUE(shell.dashboardShowsUsage());

    const int shown = tabs.count();
    settings.setEnabled(NotchTab::notes, false);
    EXPECT_EQ(shell.tab(), "dashboard");
    EXPECT_EQ(shell.tabIndex(), 0);
    EXPECT_EQ(tabs.count(), shown - 1);
    EXPECT_EQ(role(tiles, 0, "tool"), "") << "a tool turned off is not opened from its tile";

    EXPECT_TRUE(shell.toolView().isEmpty());
    shell.registerToolView(NotchTab::dashboard, QStringLiteral("DashboardView"));
    EXPECT_TRUE(shell.toolView().endsWith("/Vantrelle/Shell/DashboardView.qml"));
}

TEST_F(ViewModels, UsagePanelFillsItsListsAndSwitchesTheAlertsHook) {
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
    ASSERT_EQ(view.sessions()->count(), static_cast<int>(usage.sessions().size()));
    EXPECT_EQ(role(*view.sessions(), 0, "project"),
              QString::fromStdString(usage.sessions().front().projectName));

    view.setHooksInstalled(true);
    scheduler.runUntilIdle();
    EXPECT_TRUE(view.hooksInstalled());
    hooksHome.write("settings.json", "{broken,");
    view.setHooksInstalled(false);
    scheduler.runUntilIdle();
    EXPECT_TRUE(view.hookError().endsWith("Nothing was changed.")) << view.hookError().toStdString();
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

TEST_F(ViewModels, ShelfListsItemsOpensTheStripOfAnImageAndShowsTheMessage) {
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
    EXPECT_EQ(role(items, 1, "isImage"), false);

    const QString id = role(items, 0, "itemId").toString();
    view.toggleConversions(id);
    EXPECT_EQ(view.convertingId(), id);
    EXPECT_EQ(view.conversions().front().toMap().value(QStringLiteral("raw")), "jpg");
    view.convert(id, QStringLiteral("jpg"));
    EXPECT_EQ(role(items, 0, "busy"), true);
    manualQueues.runAll();
    scheduler.runUntilIdle();
    EXPECT_EQ(role(items, 0, "busy"), false);
    EXPECT_EQ(view.message(), "Saved my photo.jpg, 5 bytes");

    std::filesystem::remove(photo);
    view.remove(role(items, 1, "itemId").toString());
    EXPECT_EQ(items.count(), 1);
    EXPECT_EQ(role(items, 0, "url"), QString());  // gone: the view shows a generic icon
}

TEST_F(ViewModels, SettingsWriteThroughAtOnceAndRefuseWhatTheListsDoNotHold) {
    SettingsViewModel view(settings);
    int changes = 0;
    QObject::connect(&view, &SettingsViewModel::changed, &view, [&] { ++changes; });
    view.setHoverDelay(-2);
    EXPECT_DOUBLE_EQ(settings.hoverDelay(), 0) << "a delay below zero means none";
    view.setAppearance(2);
    view.setAppearance(7);
    EXPECT_EQ(settings.appearance(), Appearance::light) << "an index past the list changes nothing";
    settings.setFocusMinutes(50);  // from somewhere else
    EXPECT_EQ(view.focusMinutes(), 50);
    EXPECT_GE(changes, 3);
    view.setPage(QStringLiteral("focus"));
    view.setPage(QStringLiteral("nonsense"));
    EXPECT_EQ(view.page(), "general");

    view.moveTile(0, 7);
    EXPECT_EQ(role(*view.tiles(), 7, "raw"), "today");
    view.placeTile(0, QStringLiteral("weather"));
    EXPECT_EQ(settings.dashboardTiles().back(), DashTile::today) << "an unknown tile changes nothing";
}

TEST_F(ViewModels, RefusedToolAndToggleChangesSayWhyAndTheSwitchFlipsBack) {
    SettingsViewModel view(settings);
    auto& tools = *view.tools();
    ASSERT_EQ(role(tools, 0, "raw"), "dashboard");
    view.setToolEnabled(QStringLiteral("dashboard"), false);
    EXPECT_TRUE(role(tools, 0, "chosen").toBool());
    EXPECT_FALSE(view.toolNote().isEmpty());
    view.setToolEnabled(QStringLiteral("music"), false);
    EXPECT_FALSE(settings.isEnabled(NotchTab::music));
    EXPECT_TRUE(view.toolNote().isEmpty()) << "a change that went through clears the old note";

    settings.setVisibleToggles({QuickToggle::mute});
    view.setToggleShown(QStringLiteral("mute"), false);
    EXPECT_EQ(settings.visibleToggles(), std::vector<QuickToggle>{QuickToggle::mute});
    EXPECT_FALSE(view.toggleNote().isEmpty());
    view.setToggleShown(QStringLiteral("darkMode"), true);
    EXPECT_EQ(settings.visibleToggles().size(), 2U);
    EXPECT_TRUE(view.toggleNote().isEmpty());
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
    EXPECT_EQ(view.joinService(), "Zoom");

    view.join(view.joinUrl());
    EXPECT_EQ(joins, 0) << "a link the desktop couldn't open is no join";
    opens = true;
    view.join(view.joinUrl());
    EXPECT_EQ(joins, 1);

    source.calendar.pop_back();
    calendar.refreshIfAuthorized();
    EXPECT_EQ(view.joinUrl(), QString());
}

TEST_F(ViewModels, CalendarFoldersAndAddressesAreEditedInTheSettings) {
    TempDir dir;
    CalendarPreferences calendars(defaults, dir / "data");
    SettingsViewModel view(settings);
    EXPECT_FALSE(view.hasCalendarSettings());
    view.addCalendarFolder();  // nothing attached: nothing happens
    std::filesystem::path picked = dir / "team";
    view.attachCalendars(calendars,
                         [&](std::function<void(std::filesystem::path)> answer) { answer(picked); });
    auto& folders = *view.calendarFolders();
    const int defaultFolders = folders.count();
    std::filesystem::create_directories(picked);
    view.addCalendarFolder();
    ASSERT_EQ(folders.count(), defaultFolders + 1);
    EXPECT_EQ(role(folders, defaultFolders, "path").toString().toStdString(), picked.string());
    picked.clear();
    view.addCalendarFolder();  // the chooser was cancelled
    view.removeCalendarFolder(role(folders, defaultFolders, "path").toString());
    EXPECT_EQ(folders.count(), defaultFolders);

    int changes = 0;
    QObject::connect(&view, &SettingsViewModel::calendarsChanged, &view, [&] { ++changes; });
    view.setCalendarAddresses(QStringLiteral(" mailto:me@example.com;work@example.org "));
    EXPECT_EQ(view.calendarAddresses(), "me@example.com, work@example.org");
    EXPECT_GE(changes, 1);
}

TEST_F(ViewModels, SupportOpensOnlyItsOwnFoldersAndSaysWhereTheMailWent) {
    AppPaths paths;
    paths.dataHome = home / "data";
    paths.configHome = home / "config";
    paths.cacheHome = home / "cache";
    std::vector<QString> opened;
    bool handlerAnswers = true;
    SupportViewModel support(
        SupportViewModel::Dependencies{paths, "", SupportContext{"0.1.0", "xcb"}, [&](const QString& url) {
                                           opened.push_back(url);
                                           return handlerAnswers;
                                       }});
    support.openFolder(role(*support.folders(), 0, "raw").toString());
    ASSERT_EQ(opened.size(), 1U);
    EXPECT_TRUE(std::filesystem::is_directory(paths.dataRoot()))
        << "a folder not made yet is made to be shown";
    support.openFolder(QStringLiteral("/etc"));
    support.openDebugLog();
    EXPECT_EQ(opened.size(), 1U) << "only the folders offered, and no log to open";

    support.sendMail(QStringLiteral("Hi"), QStringLiteral("It broke"));
    ASSERT_EQ(opened.size(), 2U);
    EXPECT_TRUE(opened[1].startsWith(QStringLiteral("mailto:support@vantrelle.app?subject=Hi")));
    EXPECT_TRUE(support.status().contains(QStringLiteral("mail program has")));
    handlerAnswers = false;
    support.sendMail(QStringLiteral("Hi"), QString());
    EXPECT_TRUE(support.status().contains(QStringLiteral("support@vantrelle.app")));
}

}  // namespace
}  // namespace vantrelle::testing
