#include "Application.h"

#include <QtQml/qqmlextensionplugin.h>

#include <QCoreApplication>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QScreen>
#include <QUrl>

#include "app/LaunchFiles.h"
#include "overlay/DeclaredNotch.h"
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
    // Background services in their start-up order; the others join as they are built.
    m_services.addService("claude alerts", [this] { m_claudeAlerts.start(); });
    m_services.addService("ai usage", [this] { m_aiUsage.start(); });
    m_monitors = std::make_unique<MonitorsComposition>(
        MonitorsComposition::Deps{m_paths, m_environment, m_scheduler, m_queues, m_x, m_wrappedHistory,
                                  m_aiUsage, m_engine, DemoMode::isOn()});
    m_services.addService("screen time", [this] { m_monitors->start(); });
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &m_windows, [this] { m_monitors->flush(); });
    m_services.onTerminate = [] { QCoreApplication::quit(); };
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
    // The QML singletons Shell, Calc and AIUsage; no view has loaded yet.
    m_engine.viewModels = {m_shell.get(), m_calcView.get(), m_aiUsageView.get()};
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

    m_pointer = std::make_unique<PointerMonitor>(
        m_x, [&overlay, monitors = m_monitors.get()](NotchOverlayController::MouseEvent type, int x, int y) {
            monitors->recordPointer(x, y);
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
    commands.showWrapped = [this] { m_monitors->showWrapped(); };
    commands.quit = [] { QCoreApplication::quit(); };
    m_tray = std::make_unique<TrayMenu>(statusMenuRows(commands));

    // Demo mode shows something playing, so recordings have a live activity from the start.
    if (DemoMode::isOn()) {
        m_activities.set(LiveActivity{LiveActivity::Media{"Night Drive", "The Midnight Hours", true}},
                         LiveActivityCenter::Source::media);
    }
}

void Application::launch() {
    m_monitors->registerHooks(m_hooks);
    registerShellHooks(m_hooks, m_delegate, m_settings, m_environment, {});
    m_delegate.applicationDidFinishLaunching();
}

}  // namespace vantrelle
