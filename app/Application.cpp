#include "Application.h"

#include <QtQml/qqmlextensionplugin.h>

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QUrl>
#include <nlohmann/json.hpp>

#include "CommandPath.h"
#include "DemoShelfFiles.h"
#include "app/LaunchFiles.h"
#include "files/ScreenCapture.h"
#include "files/UserDirs.h"
#include "overlay/DeclaredNotch.h"
#include "schedule/CalendarDemo.h"
#include "support/DebugLog.h"
#include "support/DemoMode.h"
#include "support/SharedInstance.h"

// The shell's QML module is linked in statically.
Q_IMPORT_QML_PLUGIN(Vantrelle_ShellPlugin)

namespace vantrelle {

namespace {

// Where demo mode's store files go, so a recording never touches the user's.
std::filesystem::path temporaryFolder() {
    std::error_code error;
    auto folder = std::filesystem::temp_directory_path(error);
    return error ? std::filesystem::path("/tmp") : folder;
}

}  // namespace

Application::LaunchFilesReady::LaunchFilesReady(const AppPaths& paths) {
    prepareLaunchFiles(paths, SystemClock::shared());
}

Application::Application(const Environment& environment, LocalInstanceChannel* instance)
    : m_environment(environment),
      m_paths(AppPaths::fromEnvironment(environment)),
      m_launchFilesReady(m_paths),
      m_defaults(m_paths.defaultsFile()),
      m_loginItem(m_paths.autostartEntry(), commandPath()),
      m_settings(m_defaults, NotificationCenter::shared(), m_loginItem, m_scheduler),
      m_activities(m_scheduler),
      m_desktop(m_x),
      m_mirrorCamera(m_cameraUse, SystemClock::shared()),
      m_pasteboard(m_x),
      m_claudeHooks(m_paths, environment),
      m_hookSwitch(m_claudeHooks, m_queues, m_scheduler),
      m_claudeAlerts(ClaudeAlertCenter::Dependencies{
          m_claudeHooks.eventsFile(), m_scheduler, SystemClock::shared(), m_activities,
          NotificationCenter::shared(), m_settings, m_sounds, m_fileWatcher,
          [this](std::function<void(bool)> answer) { m_hookSwitch.whenKnown(std::move(answer)); },
          DemoMode::isOn()}),
      m_rates(m_http, m_defaults, SystemClock::shared(), environment),
      m_calc(m_rates, DemoMode::isOn()),
      m_wrappedHistory(WrappedHistory::defaultFile(m_paths.dataRoot()), SystemClock::shared(),
                       DemoMode::isOn()),
      m_aiUsage(AIUsageModel::Dependencies{environment, m_paths.home, SystemClock::shared(), m_scheduler,
                                           m_queues, m_processes, m_settings, m_activities, &m_wrappedHistory,
                                           DemoMode::isOn()}),
      m_imageConverter(m_imageCodec, downloadsFolder(m_paths), m_paths.dataRoot() / "Converted"),
      m_shelf(ShelfStore::Dependencies{
          ShelfStore::defaultFile(m_paths.dataRoot()), SystemClock::shared(), m_scheduler, m_queues,
          m_activities, m_imageConverter, DemoMode::isOn(),
          DemoMode::isOn()
              ? writeDemoShelfFiles(ShelfStore::demoFile().parent_path() / "vantrelle-demo-shelf-files")
              : std::vector<std::filesystem::path>{}}),
      m_downloads(DownloadsWatcher::Dependencies{
          {downloadsFolder(m_paths), m_scheduler, SystemClock::shared(), m_queues, m_fileWatcher},
          m_settings,
          m_activities,
          m_shelf}),
      m_screenshots(
          ScreenshotWatcher::Dependencies{{m_scheduler, m_queues, m_fileWatcher, isScreenCapture},
                                          m_settings,
                                          m_shelf,
                                          [this] { return screenshotFolder(m_environment, m_paths); },
                                          DemoMode::isOn()}),
      m_pomodoroNotifier(&m_desktopNotifications, m_settings, NotificationCenter::shared(), DemoMode::isOn()),
      m_pomodoro(PomodoroModel::Dependencies{SystemClock::shared(), m_scheduler, m_settings, m_defaults,
                                             m_activities, NotificationCenter::shared(), m_sounds,
                                             m_pomodoroNotifier, &m_wrappedHistory, environment,
                                             DemoMode::isOn()}),
      m_quickTimer(QuickTimerModel::Dependencies{SystemClock::shared(), m_scheduler, m_settings, m_activities,
                                                 NotificationCenter::shared(), m_sounds}),
      m_stopwatch(SystemClock::shared(), m_scheduler, m_activities),
      m_notes(NotesStore::Dependencies{m_paths.dataRoot(),
                                       temporaryFolder(),
                                       SystemClock::shared(),
                                       m_scheduler,
                                       NotificationCenter::shared(),
                                       DemoMode::isOn(),
                                       {}}),
      m_tasks(TaskStore::Dependencies{
          m_paths.dataRoot(), temporaryFolder(), SystemClock::shared(), DemoMode::isOn(), {}}),
      m_mediaProvider(MprisMediaProvider::Dependencies{QDBusConnection::sessionBus(), m_queues, m_scheduler,
                                                       m_http, m_imageDecoder}),
      m_media(MediaController::Dependencies{m_mediaProvider, m_scheduler, m_activities, DemoMode::isOn()}),
      m_calendarPreferences(m_defaults, m_paths.dataHome),
      m_calendarLibrary(m_calendarPreferences.folderPaths(), m_calendarPreferences.addresses()),
      m_calendarSource(m_calendarLibrary, m_fileWatcher, m_scheduler),
      m_calendar(CalendarService::Dependencies{
          m_calendarSource, m_settings, m_activities, NotificationCenter::shared(), m_scheduler,
          SystemClock::shared(), environment, DemoMode::isOn(),
          DemoMode::isOn() ? CalendarDemo::events(SystemClock::shared().now())
                           : std::vector<CalendarEvent>{}}),
      m_reminders(m_calendarLibrary, SystemClock::shared(), DemoMode::isOn()),
      m_liveCalendarSettings(m_calendarPreferences, m_calendarSource, m_calendar, m_reminders),
      m_screens([this] { return declaredNotch(); }),
      m_windows(m_engine, m_desktop),
      m_delegate(
          AppDelegate::Dependencies{environment,
                                    m_scheduler,
                                    m_hooks,
                                    [this] { return makeOverlay(); },
                                    {},  // no task bar entry: the overlay windows bypass the window manager
                                    [this] { m_pomodoroNotifier.registerCategories(m_pomodoro); },
                                    [this] { return permissions(); }}),
      m_instance(instance) {
    // Our files in folders shared with other programs: Claude Code's settings, the autostart entry.
    removeStaleTemporaryFilesBeside({m_claudeHooks.settingsFile(), m_paths.autostartEntry()});
    SharedInstance<AppSettings>::install(&m_settings);
    SharedInstance<LiveActivityCenter>::install(&m_activities);
    SharedInstance<ClaudeAlertCenter>::install(&m_claudeAlerts);
    SharedInstance<RatesService>::install(&m_rates);
    SharedInstance<WrappedHistory>::install(&m_wrappedHistory);
    SharedInstance<AIUsageModel>::install(&m_aiUsage);
    SharedInstance<ShelfStore>::install(&m_shelf);
    SharedInstance<DownloadsWatcher>::install(&m_downloads);
    SharedInstance<ScreenshotWatcher>::install(&m_screenshots);
    SharedInstance<PomodoroNotifier>::install(&m_pomodoroNotifier);
    SharedInstance<PomodoroModel>::install(&m_pomodoro);
    SharedInstance<QuickTimerModel>::install(&m_quickTimer);
    SharedInstance<StopwatchModel>::install(&m_stopwatch);
    SharedInstance<NotesStore>::install(&m_notes);
    SharedInstance<TaskStore>::install(&m_tasks);
    // The end of the event loop is the program's termination: stores flush their pending saves.
    QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, &m_windows,
                     [] { NotificationCenter::shared().post(Notifications::applicationWillTerminate); });
    // Files: dropped files join the shelf; the folder watchers feed it (downloads not in demo mode).
    m_services.onAddToShelf = [this](const std::vector<std::string>& urls) {
        DebugLog::write(
            [&] { return "shelf: dropped " + std::to_string(urls.size()) + " file URLs on the notch"; });
        m_shelf.addUrls(urls);
    };
    m_settings.onScreenshotsToShelfChanged = [this] { m_screenshots.apply(); };
    SharedInstance<MediaController>::install(&m_media);
    m_notices = std::make_unique<NoticesComposition>(
        NoticesComposition::Deps{m_environment, m_scheduler, m_http, m_defaults, m_settings, m_activities,
                                 &m_desktopNotifications, DemoMode::isOn()});
    m_monitors = std::make_unique<MonitorsComposition>(
        MonitorsComposition::Deps{m_paths, m_environment, m_scheduler, m_queues, m_x, m_wrappedHistory,
                                  m_aiUsage, m_engine, DemoMode::isOn(), &m_notices->battery});
    m_pomodoroNotifier.onWrappedReply = [this](const std::string& period) {
        NoticesComposition::showWrapped(period, *m_monitors);
    };
    m_launcher = std::make_unique<LauncherComposition>(
        LauncherComposition::Deps{m_paths, m_environment, m_scheduler, m_queues, m_settings,
                                  m_monitors->mileage(), m_monitors->screenTime()});
    m_shortcuts = std::make_unique<ShortcutsComposition>(
        ShortcutsComposition::Deps{m_x, m_defaults, m_scheduler, NotificationCenter::shared()});
    m_shortcuts->wireServices(m_services);
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &m_windows, [this] { m_monitors->flush(); });
    m_statusLine = std::make_unique<StatusLineComposition>(
        StatusLineComposition::Deps{m_paths, m_aiUsage, m_scheduler, SystemClock::shared(),
                                    m_instanceCommands, m_claudeHooks, m_queues, DemoMode::isOn()});
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &m_windows, [this] { m_statusLine->flush(); });
    m_systemControl = std::make_unique<SystemControlComposition>(SystemControlComposition::Deps{
        m_environment, m_paths, m_scheduler, m_queues, m_screens, m_settings, [this] {
            if (auto* overlay = m_delegate.overlay()) overlay->setExpanded(false, "system control");
        }});
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &m_windows, [this] { m_systemControl->quit(); });
    m_services.onMenuBarIgnoreClicksUntil = [this] { return m_systemControl->ignoreClicksUntil(); };
    m_services.onStopCamera = [this] { m_mirrorCamera.stop(); };
    SharedInstance<CalendarService>::install(&m_calendar);
    m_services.onRefreshSchedule = [this] {
        m_calendar.refreshIfAuthorized();
        m_reminders.refresh();
    };
    m_services.onTerminate = [] { QCoreApplication::quit(); };
    registerServices();
    wireCalendarChooser();
}

// The background services, started by the overlay in this order.
void Application::registerServices() {
    m_services.addService("calendar", [this] { m_calendar.start(); });
    m_services.addService("media", [this] { m_media.start(); });
    m_services.addService("battery", [this] { m_notices->battery.start(); });
    m_services.addService("screen time", [this] { m_monitors->start(); });
    m_services.addService("launcher", [this] { m_launcher->start(); });
    m_services.addService("downloads", [this] {
        if (!DemoMode::isOn()) m_downloads.start();
    });
    m_services.addService("screenshots", [this] { m_screenshots.apply(); });
    m_services.addService("claude alerts", [this] { m_claudeAlerts.start(); });
    m_services.addService("wrapped reminders", [this] { m_notices->reminders.start(); });
    if (m_notices->updates.isAdHocSigned())
        m_services.addService("updates", [this] { m_notices->updates.start(); });
    m_services.addService("ai usage", [this] { m_aiUsage.start(); });
}

// Asking for calendar access means pointing at a folder of .ics files; the folder is kept in the
// settings beside the default ones, and the settings window adds and removes folders the same way.
void Application::wireCalendarChooser() {
    m_calendarSource.chooseFolder = chooseCalendarFolder;
    m_calendarSource.onFoldersChanged = [this](const std::vector<std::filesystem::path>& folders) {
        for (const auto& folder : folders) (void)m_calendarPreferences.addFolder(folder);
    };
}

void Application::chooseCalendarFolder(std::function<void(std::filesystem::path)> answer) {
    const QString folder = QFileDialog::getExistingDirectory(
        nullptr, QStringLiteral("Choose a calendar folder"), QDir::homePath());
    answer(folder.isEmpty() ? std::filesystem::path() : std::filesystem::path(folder.toStdString()));
}

Application::~Application() {
    // The views go first, while everything they read is still whole.
    m_settingsWindow.reset();
    m_windows.closeViews();
    SharedInstance<AppSettings>::install(nullptr);
    SharedInstance<LiveActivityCenter>::install(nullptr);
    SharedInstance<ClaudeAlertCenter>::install(nullptr);
    SharedInstance<RatesService>::install(nullptr);
    SharedInstance<WrappedHistory>::install(nullptr);
    SharedInstance<AIUsageModel>::install(nullptr);
    SharedInstance<ShelfStore>::install(nullptr);
    SharedInstance<DownloadsWatcher>::install(nullptr);
    SharedInstance<ScreenshotWatcher>::install(nullptr);
    SharedInstance<PomodoroNotifier>::install(nullptr);
    SharedInstance<PomodoroModel>::install(nullptr);
    SharedInstance<QuickTimerModel>::install(nullptr);
    SharedInstance<StopwatchModel>::install(nullptr);
    SharedInstance<NotesStore>::install(nullptr);
    SharedInstance<TaskStore>::install(nullptr);
    SharedInstance<MediaController>::install(nullptr);
    SharedInstance<CalendarService>::install(nullptr);
}

std::optional<Rect> Application::declaredNotch() const {
    // The hook wins over the setting, as hooks do for scripted runs.
    auto text = m_environment.get("VANTRELLE_NOTCH");
    if (!text) text = m_defaults.string("declaredNotch");
    return text ? parseDeclaredNotch(*text) : std::nullopt;
}

std::unique_ptr<NotchOverlayController> Application::makeOverlay() {
    QuietMonitor::Probes probes{
        [this](const std::optional<ScreenInfo>& screen) {
            return screen &&
                   m_desktop.activeWindowIsFullScreen(DesktopCoordinates::current().toDesktop(screen->frame));
        },
        [this] { return m_cameraProbe.anyCameraRunning(); }};
    auto overlay = std::make_unique<NotchOverlayController>(NotchOverlayController::Dependencies{
        m_settings, m_activities, NotificationCenter::shared(), m_scheduler, SystemClock::shared(),
        m_environment, m_windows, m_screens, m_pasteboard, m_sounds, m_services, std::move(probes),
        m_cameraUse});
    wirePlatform(*overlay);
    return overlay;
}

void Application::wirePlatform(NotchOverlayController& overlay) {
    m_shell = std::make_unique<ShellModel>(overlay, m_settings, m_activities, SystemClock::shared());
    m_shell->onShapeChanged = [this](QRectF shell, qreal cornerRadius, QRectF dock) {
        m_windows.setShape(shell, cornerRadius, dock);
    };
    m_windows.onNotchCenterChanged = [this](qreal x) { m_shell->setNotchCenterX(x); };

    // The tools that are built, each with the model its view reads.
    m_calcView = std::make_unique<CalcViewModel>(m_calc);
    m_shell->registerToolView(NotchTab::calc, QStringLiteral("CalcView"));
    m_aiUsageView = std::make_unique<AIUsageViewModel>(m_aiUsage, m_hookSwitch, SystemClock::shared());
    m_shell->registerToolView(NotchTab::aiUsage, QStringLiteral("AIUsageView"));
    m_shell->registerToolView(NotchTab::dashboard, QStringLiteral("DashboardView"));
    m_shell->registerTileView(DashTile::aiUsage, QStringLiteral("AIUsageTile"));
    m_shelfView = std::make_unique<ShelfViewModel>(m_shelf);
    m_shell->registerToolView(NotchTab::shelf, QStringLiteral("ShelfView"));
    m_shell->registerTileView(DashTile::shelf, QStringLiteral("ShelfTile"));
    wireFocus();
    // The QML singletons, one per view model; no view has loaded yet.
    m_engine.viewModels.shell = m_shell.get();
    m_engine.viewModels.calc = m_calcView.get();
    m_engine.viewModels.aiUsage = m_aiUsageView.get();
    m_engine.viewModels.shelf = m_shelfView.get();
    m_engine.viewModels.focus = m_focusView.get();
    // Notes and tasks.
    m_notesView = std::make_unique<NotesViewModel>(m_notes, SystemClock::shared());
    m_tasksView = std::make_unique<TasksViewModel>(m_tasks);
    m_shell->registerToolView(NotchTab::notes, QStringLiteral("NotesView"));
    m_shell->registerToolView(NotchTab::tasks, QStringLiteral("TasksView"));
    m_shell->registerTileView(DashTile::notes, QStringLiteral("NotesTile"));
    m_shell->registerTileView(DashTile::tasks, QStringLiteral("TasksTile"));
    m_engine.viewModels.notes = m_notesView.get();
    m_engine.viewModels.tasks = m_tasksView.get();
    m_mediaView = std::make_unique<MediaViewModel>(m_media, m_playerApps);
    m_shell->registerToolView(NotchTab::music, QStringLiteral("MusicView"));
    m_shell->registerTileView(DashTile::music, QStringLiteral("MusicTile"));
    m_engine.viewModels.media = m_mediaView.get();
    // The monitors' tools, tiles and singletons (DevServers, ScreenTime, SystemStats, Wrapped).
    m_shell->registerToolView(NotchTab::devServers, QStringLiteral("DevServersView"));
    m_shell->registerToolView(NotchTab::screenTime, QStringLiteral("ScreenTimeView"));
    m_shell->registerToolView(NotchTab::stats, QStringLiteral("SystemStatsView"));
    m_shell->registerTileView(DashTile::devServers, QStringLiteral("DevServersTile"));
    m_shell->registerTileView(DashTile::screenTime, QStringLiteral("ScreenTimeTile"));
    m_shell->registerTileView(DashTile::systemStats, QStringLiteral("SystemStatsTile"));
    m_engine.viewModels.devServers = &m_monitors->devServersView;
    m_engine.viewModels.screenTime = &m_monitors->screenTimeView;
    m_engine.viewModels.systemStats = &m_monitors->systemStatsView;
    m_engine.viewModels.wrapped = &m_monitors->wrappedView;
    if (QScreen* screen = QGuiApplication::primaryScreen(); screen && screen->size().width() > 0) {
        const double metres = screen->physicalSize().width() / 1000.0 / screen->size().width();
        m_monitors->setMetresPerPixel(metres /
                                      screen->devicePixelRatio());  // pointer positions are device pixels
    }
    m_todayView = std::make_unique<TodayViewModel>(
        m_calendar, [](const QString& url) { return QDesktopServices::openUrl(QUrl(url)); },
        [this] { m_wrappedHistory.recordMeetingJoined(); });
    m_shell->registerToolView(NotchTab::today, QStringLiteral("TodayView"));
    m_shell->registerTileView(DashTile::today, QStringLiteral("TodayTile"));
    m_remindersView = std::make_unique<RemindersViewModel>(m_reminders);
    m_shell->registerToolView(NotchTab::reminders, QStringLiteral("RemindersView"));
    m_shell->registerTileView(DashTile::reminders, QStringLiteral("RemindersTile"));
    m_engine.viewModels.today = m_todayView.get();
    m_engine.viewModels.reminders = m_remindersView.get();
    m_launcher->wire(*m_shell, m_engine);
    m_shortcuts->wireShell(*m_shell, m_engine);

    m_settingsView = std::make_unique<SettingsViewModel>(m_settings);
    m_settingsView->attachCalendars(m_calendarPreferences, chooseCalendarFolder);
    m_settingsView->attachStatusLine(&m_statusLine->statusLineSwitch());
    m_systemControl->wire(*m_shell, m_engine, *m_settingsView);
    m_settingsWindow = std::make_unique<SettingsWindow>(m_engine);
    m_shell->onOpenSettings = [this] { showSettings(); };
    m_shell->onQuit = [] { QCoreApplication::quit(); };
    addSupportAndMirror();
    m_engine.viewModels.settings = m_settingsView.get();
    m_engine.viewModels.support = m_supportView.get();
    m_engine.viewModels.mirror = m_mirrorView.get();

    // VANTRELLE_NO_RAW_POINTER=1 hears only our own windows' pointer events, as an X client under a
    // Wayland compositor does: scripted runs prove the notch works there too.
    const bool noRawPointer = m_environment.isOne("VANTRELLE_NO_RAW_POINTER");
    m_shell->setOwnPointerEvents(noRawPointer || m_desktop.isXWayland());
    if (m_shell->ownPointerEvents()) {
        DebugLog::write("overlay: the notch's own windows report the pointer (XWayland or no raw events)");
        m_windows.onPointerMoved = [this](QPoint p) { m_shell->pointerMoved(p); };
        m_windows.onPointerLeft = [this] { m_shell->pointerLeft(); };
    }
    if (noRawPointer) {
        DebugLog::write("overlay: raw pointer events off");
    } else {
        m_pointer = std::make_unique<PointerMonitor>(
            m_x,
            [&overlay, monitors = m_monitors.get()](NotchOverlayController::MouseEvent type, int x, int y) {
                monitors->recordPointer(x, y);
                overlay.handleMouse(type, DesktopCoordinates::current().toGlobal(QPoint(x, y)));
            });
    }

    auto* app = qGuiApp;
    auto rebuild = [&overlay] { overlay.rebuild(); };
    QObject::connect(app, &QGuiApplication::screenAdded, &m_windows, [rebuild](QScreen* screen) {
        QObject::connect(screen, &QScreen::geometryChanged, screen, rebuild);
        rebuild();
    });
    QObject::connect(app, &QGuiApplication::screenRemoved, &m_windows, [rebuild](QScreen*) { rebuild(); });
    for (QScreen* screen : QGuiApplication::screens()) {
        QObject::connect(screen, &QScreen::geometryChanged, screen, rebuild);
        QObject::connect(screen, &QScreen::availableGeometryChanged, screen, rebuild);
    }

    StatusMenuCommands commands;
    commands.openNotch = [&overlay] { overlay.setExpanded(true, "unspecified"); };
    commands.toggleFocusTimer = [this] { m_pomodoro.toggle(); };
    commands.showWrapped = [this] { m_monitors->showWrapped(); };
    // The Support tool holds the mail form.
    commands.emailSupport = [&overlay] {
        overlay.state().setTab(NotchTab::support);
        overlay.setExpanded(true, "email support");
    };
    commands.checkForUpdates = [this] { m_notices->checkForUpdates(); };
    commands.canCheckForUpdates = m_notices->updates.isAdHocSigned();
    if (commands.canCheckForUpdates) commands.updatesNote = m_notices->updatesNote();
    commands.showSettings = [this] { showSettings(); };
    commands.quit = [] { QCoreApplication::quit(); };
    m_tray = std::make_unique<TrayMenu>(statusMenuRows(commands));
    m_shell->setHasTray(m_tray->isShown());
    DebugLog::write(
        [&] { return std::string("launch: tray icon ") + (m_tray->isShown() ? "shown" : "not shown"); });
    addInstanceCommands(overlay);
}

void Application::wireFocus() {
    m_focusView = std::make_unique<FocusViewModel>(m_pomodoro, m_quickTimer, m_stopwatch, m_settings);
    m_shell->registerToolView(NotchTab::focus, QStringLiteral("FocusView"));
    m_shell->registerTileView(DashTile::pomodoro, QStringLiteral("PomodoroTile"));
    m_shell->setTimerReadings([this] { return focusReadings(); });
}

TimerReadings Application::focusReadings() const {
    TimerReadings readings;
    if (m_pomodoro.status() != PomodoroStatus::idle) {
        readings.pomodoroRemaining = m_pomodoro.remaining();
        readings.pomodoroProgress = m_pomodoro.progress();
        readings.pomodoroInBreak = m_pomodoro.phase() == PomodoroPhase::shortBreak;
        readings.pomodoroPaused = m_pomodoro.status() == PomodoroStatus::paused;
    }
    if (m_quickTimer.status() != QuickTimerModel::Status::idle)
        readings.quickTimerRemaining = m_quickTimer.remaining();
    if (m_stopwatch.isRunning() || m_stopwatch.elapsed() > 0)
        readings.stopwatchElapsed = m_stopwatch.elapsed();
    return readings;
}

void Application::launch() {
    m_monitors->registerHooks(m_hooks);
    m_launcher->registerHooks(m_hooks);
    registerShellHooks(m_hooks, m_delegate, m_settings, m_environment, [this] { showSettings(); });
    m_delegate.applicationDidFinishLaunching();
    if (m_instance) m_instance->listen(m_instanceCommands);
}

void Application::addSupportAndMirror() {
    const std::string platform = QGuiApplication::platformName().toStdString() +
                                 (m_desktop.hasCompositor() ? ", compositor" : ", no compositor");
    const auto log = m_environment.get("VANTRELLE_DEBUG_LOG");
    m_supportView = std::make_unique<SupportViewModel>(SupportViewModel::Dependencies{
        m_paths, DebugLog::isOn() && log ? *log : std::string(), SupportContext{VANTRELLE_VERSION, platform},
        [](const QString& url) {
            // The desktop's mail handler takes mailto: links through xdg-open; folders and files go to
            // whatever the desktop opens them with.
            if (url.startsWith(QStringLiteral("mailto:")))
                return QProcess::startDetached(QStringLiteral("xdg-open"), {url});
            return QDesktopServices::openUrl(QUrl(url));
        }});
    m_shell->registerToolView(NotchTab::support, QStringLiteral("SupportView"));
    m_mirrorView = std::make_unique<MirrorViewModel>(m_mirrorCamera);
    m_shell->registerToolView(NotchTab::mirror, QStringLiteral("MirrorView"));
}

void Application::showSettings() {
    if (!m_settingsWindow) return;
    // The panel sits above every window; it makes way for the one the user asked for.
    if (auto* overlay = m_delegate.overlay()) overlay->setExpanded(false, "settings");
    m_settingsWindow->show();
}

void Application::addInstanceCommands(NotchOverlayController& overlay) {
    // A second launch: the notch opens, or the settings when that launch asked for them.
    m_instanceCommands.add("open", [this, &overlay](const nlohmann::json& request) {
        const auto page = request.find("settings");
        if (page != request.end() && page->is_string()) {
            m_settings.setSettingsTab(
                settingsTabFromRaw(page->get<std::string>()).value_or(SettingsTab::general));
            showSettings();
        } else {
            overlay.setExpanded(true, "second launch");
        }
        return nlohmann::json::object();
    });
    m_instanceCommands.add("quit", [](const nlohmann::json&) {
        DebugLog::write("launch: quit requested by another process");
        // After this turn of the loop, so the reply is written first.
        QMetaObject::invokeMethod(QCoreApplication::instance(), &QCoreApplication::quit,
                                  Qt::QueuedConnection);
        return nlohmann::json::object();
    });
    m_instanceCommands.add("version", [](const nlohmann::json&) {
        return nlohmann::json{{"version", VANTRELLE_VERSION}, {"pid", QCoreApplication::applicationPid()}};
    });
}

PermissionStatus Application::permissions() const {
    // Calendars are files and reminders have no service here: neither asks the user. A camera is the
    // device file's access rights.
    const auto camera = m_cameraProbe.canOpenACamera();
    return PermissionStatus{
        Permission::notRequired, Permission::notRequired,
        !camera ? Permission::noDevice : (*camera ? Permission::granted : Permission::denied)};
}

}  // namespace vantrelle
