#include "Application.h"

#include <QtQml/qqmlextensionplugin.h>

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QScreen>
#include <QUrl>

#include "app/LaunchFiles.h"
#include "overlay/DeclaredNotch.h"
#include "schedule/CalendarDemo.h"
#include "schedule/CalendarSettings.h"
#include "support/DemoMode.h"
#include "support/SharedInstance.h"

// The shell's QML module is linked in statically.
Q_IMPORT_QML_PLUGIN(Vantrelle_ShellPlugin)

namespace vantrelle {

Application::LaunchFilesReady::LaunchFilesReady(const AppPaths& paths) {
    prepareLaunchFiles(paths, SystemClock::shared());
}

Application::Application(const Environment& environment)
    : m_environment(environment),
      m_paths(AppPaths::fromEnvironment(environment)),
      m_launchFilesReady(m_paths),
      m_defaults(m_paths.defaultsFile()),
      m_loginItem(m_paths.autostartEntry(), QCoreApplication::applicationFilePath().toStdString()),
      m_settings(m_defaults, NotificationCenter::shared(), m_loginItem, m_scheduler),
      m_activities(m_scheduler),
      m_desktop(m_x),
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
      m_calendarLibrary(CalendarSettings::folders(m_defaults, m_paths.dataHome),
                        CalendarSettings::userAddresses(m_defaults)),
      m_calendarSource(m_calendarLibrary, m_fileWatcher, m_scheduler),
      m_calendar(CalendarService::Dependencies{
          m_calendarSource, m_settings, m_activities, NotificationCenter::shared(), m_scheduler,
          SystemClock::shared(), environment, DemoMode::isOn(),
          DemoMode::isOn() ? CalendarDemo::events(SystemClock::shared().now())
                           : std::vector<CalendarEvent>{}}),
      m_reminders(m_calendarLibrary, SystemClock::shared(), DemoMode::isOn()),
      m_screens([this] { return declaredNotch(); }),
      m_windows(m_engine, m_desktop),
      m_delegate(
          AppDelegate::Dependencies{environment,
                                    m_scheduler,
                                    m_hooks,
                                    [this] { return makeOverlay(); },
                                    {},  // no task bar entry: the overlay windows bypass the window manager
                                    {},  // notification categories arrive with the focus timer
                                    [] {
                                        return PermissionStatus{3, 3, 3};
                                    }}) {
    // Our files in folders shared with other programs: Claude Code's settings, the autostart entry.
    removeStaleTemporaryFilesBeside({m_claudeHooks.settingsFile(), m_paths.autostartEntry()});
    SharedInstance<AppSettings>::install(&m_settings);
    SharedInstance<LiveActivityCenter>::install(&m_activities);
    SharedInstance<ClaudeAlertCenter>::install(&m_claudeAlerts);
    SharedInstance<RatesService>::install(&m_rates);
    SharedInstance<WrappedHistory>::install(&m_wrappedHistory);
    SharedInstance<AIUsageModel>::install(&m_aiUsage);
    SharedInstance<CalendarService>::install(&m_calendar);
    // Background services in their start-up order; the others join as they are built.
    m_services.addService("claude alerts", [this] { m_claudeAlerts.start(); });
    m_services.addService("ai usage", [this] { m_aiUsage.start(); });
    m_services.addService("calendar", [this] { m_calendar.start(); });
    m_services.onRefreshSchedule = [this] {
        m_calendar.refreshIfAuthorized();
        m_reminders.refresh();
    };
    m_services.onTerminate = [] { QCoreApplication::quit(); };
    wireCalendarChooser();
}

// Asking for calendar access means pointing at a folder of .ics files; the folder is kept in the
// settings beside the default ones.
void Application::wireCalendarChooser() {
    m_calendarSource.chooseFolder = [](std::function<void(std::filesystem::path)> answer) {
        const QString folder = QFileDialog::getExistingDirectory(
            nullptr, QStringLiteral("Choose a calendar folder"), QDir::homePath());
        answer(folder.isEmpty() ? std::filesystem::path() : std::filesystem::path(folder.toStdString()));
    };
    m_calendarSource.onFoldersChanged = [this](const std::vector<std::filesystem::path>& folders) {
        const auto defaults = defaultCalendarFolders(m_paths.dataHome);
        std::vector<std::string> chosen;
        for (const auto& folder : folders) {
            if (std::find(defaults.begin(), defaults.end(), folder) == defaults.end())
                chosen.push_back(folder.string());
        }
        m_defaults.set(CalendarSettings::kFoldersKey, chosen);
    };
}

Application::~Application() {
    // The views go first, while everything they read is still whole.
    m_windows.closeViews();
    SharedInstance<AppSettings>::install(nullptr);
    SharedInstance<LiveActivityCenter>::install(nullptr);
    SharedInstance<ClaudeAlertCenter>::install(nullptr);
    SharedInstance<RatesService>::install(nullptr);
    SharedInstance<WrappedHistory>::install(nullptr);
    SharedInstance<AIUsageModel>::install(nullptr);
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

    // The tools that are built, each with the model its view reads.
    m_calcView = std::make_unique<CalcViewModel>(m_calc);
    m_shell->registerToolView(NotchTab::calc, QStringLiteral("CalcView"));
    m_aiUsageView = std::make_unique<AIUsageViewModel>(m_aiUsage, m_hookSwitch, SystemClock::shared());
    m_shell->registerToolView(NotchTab::aiUsage, QStringLiteral("AIUsageView"));
    m_shell->registerToolView(NotchTab::dashboard, QStringLiteral("DashboardView"));
    m_shell->registerTileView(DashTile::aiUsage, QStringLiteral("AIUsageTile"));
    m_todayView = std::make_unique<TodayViewModel>(
        m_calendar, [](const QString& url) { return QDesktopServices::openUrl(QUrl(url)); },
        [this] { m_wrappedHistory.recordMeetingJoined(); });
    m_shell->registerToolView(NotchTab::today, QStringLiteral("TodayView"));
    m_shell->registerTileView(DashTile::today, QStringLiteral("TodayTile"));
    m_remindersView = std::make_unique<RemindersViewModel>(m_reminders);
    m_shell->registerToolView(NotchTab::reminders, QStringLiteral("RemindersView"));
    m_shell->registerTileView(DashTile::reminders, QStringLiteral("RemindersTile"));
    // The QML singletons Shell, Calc, AIUsage, Today and Reminders; no view has loaded yet.
    m_engine.viewModels = {m_shell.get(), m_calcView.get(), m_aiUsageView.get(), m_todayView.get(),
                           m_remindersView.get()};

    m_pointer = std::make_unique<PointerMonitor>(
        m_x, [&overlay](NotchOverlayController::MouseEvent type, int x, int y) {
            overlay.handleMouse(type, DesktopCoordinates::current().toGlobal(QPoint(x, y)));
        });

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
    commands.emailSupport = [] {
        QDesktopServices::openUrl(
            QUrl(QStringLiteral("mailto:support@vantrelle.app?subject=Vantrelle%20feedback")));
    };
    commands.quit = [] { QCoreApplication::quit(); };
    m_tray = std::make_unique<TrayMenu>(statusMenuRows(commands));

    // Demo mode shows something playing, so recordings have a live activity from the start.
    if (DemoMode::isOn()) {
        m_activities.set(LiveActivity{LiveActivity::Media{"Night Drive", "The Midnight Hours", true}},
                         LiveActivityCenter::Source::media);
    }
}

void Application::launch() {
    registerShellHooks(m_hooks, m_delegate, m_settings, m_environment, {});
    m_delegate.applicationDidFinishLaunching();
}

}  // namespace vantrelle
