#include <QtQml/qqmlextensionplugin.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDirIterator>
#include <QImage>
#include <QQmlComponent>
#include <memory>

#include "DayProgressViewModel.h"
#include "DevServersViewModel.h"
#include "LauncherViewModel.h"
#include "MediaViewModel.h"
#include "MenuBarViewModel.h"
#include "MirrorViewModel.h"
#include "NotesViewModel.h"
#include "QuickTogglesViewModel.h"
#include "RemindersViewModel.h"
#include "ScreenTimeViewModel.h"
#include "SettingsViewModel.h"
#include "ShelfViewModel.h"
#include "ShellEngine.h"
#include "ShellModel.h"
#include "ShortcutsViewModel.h"
#include "SupportViewModel.h"
#include "SystemStatsViewModel.h"
#include "TasksViewModel.h"
#include "TavoRunViewModel.h"
#include "TodayViewModel.h"
#include "ViewModelFixture.h"
#include "WrappedViewModel.h"
#include "fakes/FakeCalendarSource.h"
#include "fakes/FakeDevServerPlatform.h"
#include "fakes/FakeImageCodec.h"
#include "fakes/FakeMediaProvider.h"
#include "fakes/FakeProcessRunner.h"
#include "fakes/FakeScreenActivity.h"
#include "fakes/TempDir.h"
#include "menubar/FakeTrayItems.h"
#include "schedule/CalendarDemo.h"
#include "shortcuts/FakeHotKeys.h"
#include "toggles/FakeProcessLauncher.h"

Q_IMPORT_QML_PLUGIN(Vantrelle_ShellPlugin)

namespace vantrelle::testing {
namespace {

class NoPlayerApps final : public PlayerApps {
public:
    [[nodiscard]] std::optional<std::string> installedName(MediaSource) const override { return "Player"; }
    void open(MediaSource) override {}
};

// The toggles with a stand-in for gio: one toggle shows, the others say what they lack.
ToggleTable standInToggles(const TempDir& dir) {
    ::chmod(dir.write("bin/gio", "#!/bin/sh\n").c_str(), 0755);
    return ToggleTable(DesktopTools({dir / "bin"}, DesktopTools::Desktop::gnome), false);
}

// Every component of the shell's QML module, built against real view models on demo figures: what
// would show as a QML error or warning in the running program fails here, without a display.
class ShellQml : public ViewModelFixture {
protected:
    ShellQml() : ViewModelFixture(true) {
        engine.setOutputWarningsToStandardError(false);
        QObject::connect(&engine, &QQmlEngine::warnings, &engine, [this](const QList<QQmlError>& list) {
            for (const auto& warning : list) problems.push_back(warning.toString().toStdString());
        });
        usage.applyDemo();
        shell.registerToolView(NotchTab::dashboard, QStringLiteral("DashboardView"));
        engine.viewModels.shell = &shell;
        engine.viewModels.calc = &calcView;
        engine.viewModels.aiUsage = &usageView;
        engine.viewModels.shelf = &shelfView;
        engine.viewModels.focus = &focusView;
        QImage photo(8, 8, QImage::Format_RGB32);
        photo.fill(Qt::red);
        photo.save(QString::fromStdString((home / "photo.png").string()));
        shelf.add({home.write("shelf/notes.txt", "n"), home / "photo.png"});
        engine.viewModels.notes = &notesView;
        engine.viewModels.tasks = &tasksView;
        media.start();
        engine.viewModels.media = &mediaView;
        screenTime.start();
        engine.viewModels.devServers = &devServersView;
        engine.viewModels.screenTime = &screenTimeView;
        engine.viewModels.systemStats = &systemStatsView;
        engine.viewModels.wrapped = &wrappedView;
        engine.viewModels.settings = &settingsView;
        engine.viewModels.support = &supportView;
        engine.viewModels.mirror = &mirrorView;
        engine.viewModels.today = &todayView;
        engine.viewModels.reminders = &remindersView;
        home.write("apps/firefox.desktop", "[Desktop Entry]\nType=Application\nName=Firefox\nIcon=firefox\n");
        launcher.start();
        scheduler.runUntilIdle();
        engine.viewModels.launcher = &launcherView;
        engine.viewModels.dayProgress = &dayProgressView;
        tray.list = {{"a", "nm-applet", "Network", "", 7, {}, {}}, {"b", "", "Foo Helper", "", 8, {}, {}}};
        engine.viewModels.quickToggles = &togglesView;
        engine.viewModels.menuBar = &menuBarView;
        engine.viewModels.shortcuts = &shortcutsView;
        engine.viewModels.game = &gameView;
    }

    // Builds a component of the module; the errors it met, if any.
    std::vector<std::string> build(const QString& name, const QVariantMap& properties = {}) {
        QQmlComponent component(&engine, ShellEngine::componentUrl(name));
        if (!component.isReady()) {  // Qt 6.4 crashes when asked to create a component that failed
            for (const auto& error : component.errors()) problems.push_back(error.toString().toStdString());
            return std::exchange(problems, {});
        }
        std::unique_ptr<QObject> object(component.createWithInitialProperties(properties));
        for (const auto& error : component.errors()) problems.push_back(error.toString().toStdString());
        if (!object) problems.push_back(name.toStdString() + ": not created");
        QCoreApplication::processEvents();
        return std::exchange(problems, {});
    }

    FakeImageCodec imageCodec;
    ImageConverter converter{imageCodec, std::nullopt, home / "Converted"};
    ShelfStore shelf{{home / "shelf.json", scheduler, scheduler, queues, activities, converter, false, {}}};
    ShelfViewModel shelfView{shelf};
    TempDir notesHome;
    NotesStore notes{{notesHome.path(), notesHome.path(), scheduler, scheduler, notifications, true, {}}};
    NotesViewModel notesView{notes, scheduler};
    TaskStore tasks{{notesHome.path(), notesHome.path(), scheduler, true, {}}};
    TasksViewModel tasksView{tasks};
    FakeMediaProvider mediaProvider;
    MediaController media{{mediaProvider, scheduler, activities, true}};
    NoPlayerApps playerApps;
    MediaViewModel mediaView{media, playerApps};
    testing::FakeCalendarSource calendarSource;
    CalendarService calendar{CalendarService::Dependencies{calendarSource, settings, activities,
                                                           notifications, scheduler, scheduler, environment,
                                                           true, CalendarDemo::events(scheduler.now())}};
    TodayViewModel todayView{calendar, [](const QString&) { return true; }, [] {}};
    CalendarLibrary calendarLibrary;
    ReminderList reminders{calendarLibrary, scheduler, true};
    RemindersViewModel remindersView{reminders};
    ShellModel shell{started(), settings, activities, scheduler};
    // The monitors on demo figures.
    class NoCounters final : public SystemCounterSource {
    public:
        SystemCounters read() override {
            return {10, 100, 8'000'000'000, 3'000'000'000, 500, 200, 0, 0, 76.0, true};
        }
    } counters;
    FakeDevServerPlatform devPlatform;
    DevServerMonitor devServers{
        {scheduler, scheduler, queues, devPlatform, devPlatform, 1, "/home/ada", true}};
    FakeScreenActivity screenActivity;
    ScreenTimeTracker screenTime{{scheduler, scheduler, screenActivity, home / "screentime", true}};
    SystemStats systemStats{scheduler, scheduler, counters};
    DevServersViewModel devServersView{devServers};
    ScreenTimeViewModel screenTimeView{screenTime};
    SystemStatsViewModel systemStatsView{systemStats};
    WrappedViewModel wrappedView{[](WrappedPeriod period) {
                                     WrappedSources sources;
                                     sources.demoMode = true;
                                     return WrappedSummary::make(period, Date{1'800'000'000.0}, sources);
                                 },
                                 QString::fromStdString(home.path().string())};
    SettingsViewModel settingsView{settings};
    SupportViewModel supportView{SupportViewModel::Dependencies{hooksPaths, "/tmp/vantrelle.log",
                                                                SupportContext{"0.1.0", "offscreen"},
                                                                [](const QString&) { return false; }}};
    CameraUse cameraUse;
    MirrorCamera mirrorCamera{cameraUse, scheduler};
    MirrorViewModel mirrorView{mirrorCamera};
    // The launcher with one installed application, and Day Progress.
    testing::FakeProcessRunner launcherRunner;
    std::vector<std::filesystem::path> appFolders{home / "apps"};
    LauncherModel launcher{LauncherModel::Deps{scheduler, queues, launcherRunner, scheduler, appFolders,
                                               home / "appletsrc", "", home / "screentime", nullptr}};
    LauncherViewModel launcherView{launcher, [] {}};
    CursorMileage mileage{home / "cursor-mileage.json", scheduler, true};
    class NoClipboard final : public Clipboard {
    public:
        void setText(const std::string&) override {}
    } clipboard;
    MileageShare mileageShare{mileage, scheduler, clipboard};
    DayProgressModel dayProgress{{scheduler, scheduler, settings, [] { return 2400.0; }}};
    DayProgressViewModel dayProgressView{dayProgress, mileageShare};
    // System control on stand-ins.
    FakeProcessLauncher toggleLauncher;
    FakeProcessRunner runner;
    QuickToggles quickToggles{
        {standInToggles(home), toggleLauncher, runner, nullptr, queues, scheduler, scheduler, home.path()}};
    QuickTogglesViewModel togglesView{quickToggles, settings, [] {}};
    FakeTrayItems tray;
    FakeScreens trayScreens;
    MenuBarIcons menuBarIcons{{tray, trayScreens, scheduler, scheduler, {}, {}}};
    MenuBarViewModel menuBarView{menuBarIcons, [] {}};
    FakeHotKeys hotKeys;
    ToolShortcuts shortcuts{defaults, hotKeys, scheduler};
    ShortcutsViewModel shortcutsView{shortcuts};
    TavoRun game{scheduler, defaults, notifications};
    TavoRunViewModel gameView{game};
    ShellEngine engine;
    std::vector<std::string> problems;
};

// Every QML file of the source tree, by the name the module gives it.
QStringList sourceComponents() {
    QStringList names;
    QDirIterator it(QStringLiteral(VANTRELLE_QML_SOURCE_DIR), {QStringLiteral("*.qml")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) names << it.nextFileInfo().completeBaseName();
    return names;
}

// A file left out of the module fails here too: it can't be built by its name.
TEST_F(ShellQml, EveryComponentOfTheModuleBuildsWithoutErrorsOrWarnings) {
    const QStringList names = sourceComponents();
    ASSERT_FALSE(names.isEmpty());
    // Components a parent fills in; the values stand in for a row of their list.
    const QMap<QString, QVariantMap> properties{{QStringLiteral("DashboardTile"),
                                                 {{QStringLiteral("raw"), QStringLiteral("aiUsage")},
                                                  {QStringLiteral("title"), QStringLiteral("AI Usage")},
                                                  {QStringLiteral("icon"), QStringLiteral("x")},
                                                  {QStringLiteral("subtitle"), QString()},
                                                  {QStringLiteral("tool"), QStringLiteral("aiUsage")},
                                                  {QStringLiteral("tint"), QColor(Qt::red)},
                                                  {QStringLiteral("view"), QString()}}},
                                                {QStringLiteral("ShelfItemTile"),
                                                 {{QStringLiteral("itemId"), QStringLiteral("A")},
                                                  {QStringLiteral("name"), QStringLiteral("photo.png")},
                                                  {QStringLiteral("url"), QString()},
                                                  {QStringLiteral("isImage"), false},
                                                  {QStringLiteral("busy"), false}}}};
    for (const auto& name : names) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(build(name, properties.value(name)), std::vector<std::string>{});
    }
}

TEST_F(ShellQml, ASingletonWithoutItsModelIsAnErrorNotACrash) {
    engine.viewModels.calc = nullptr;
    EXPECT_FALSE(build(QStringLiteral("CalcView")).empty());
}

}  // namespace
}  // namespace vantrelle::testing
