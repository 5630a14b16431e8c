#include "Application.h"

#include <QtQml/qqmlextensionplugin.h>

#include <QCoreApplication>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QUrl>
#include <nlohmann/json.hpp>

#include "app/LaunchFiles.h"
#include "overlay/DeclaredNotch.h"
#include "support/DebugLog.h"
#include "support/DemoMode.h"
#include "support/SharedInstance.h"

// The shell's QML module is linked in statically.
Q_IMPORT_QML_PLUGIN(Vantrelle_ShellPlugin)

namespace vantrelle {

Application::LaunchFilesReady::LaunchFilesReady(const AppPaths& paths) {
    prepareLaunchFiles(paths, SystemClock::shared());
}

Application::Application(const Environment& environment, LocalInstanceChannel* instance)
    : m_environment(environment),
      m_paths(AppPaths::fromEnvironment(environment)),
      m_launchFilesReady(m_paths),
      m_defaults(m_paths.defaultsFile()),
      m_loginItem(m_paths.autostartEntry(), QCoreApplication::applicationFilePath().toStdString()),
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
      m_screens([this] { return declaredNotch(); }),
      m_windows(m_engine, m_desktop),
      m_delegate(
          AppDelegate::Dependencies{environment,
                                    m_scheduler,
                                    m_hooks,
                                    [this] { return makeOverlay(); },
                                    {},  // no task bar entry: the overlay windows bypass the window manager
                                    {},  // notification categories arrive with the focus timer
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
    // Background services in their start-up order; the others join as they are built.
    m_services.addService("claude alerts", [this] { m_claudeAlerts.start(); });
    m_services.addService("ai usage", [this] { m_aiUsage.start(); });
    m_services.onTerminate = [] { QCoreApplication::quit(); };
    m_services.onStopCamera = [this] { m_mirrorCamera.stop(); };
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
    m_settingsView = std::make_unique<SettingsViewModel>(m_settings);
    m_settingsWindow = std::make_unique<SettingsWindow>(m_engine);
    m_shell->onOpenSettings = [this] { showSettings(); };
    m_shell->onQuit = [] { QCoreApplication::quit(); };
    addSupportAndMirror();
    // The QML singletons Shell, Calc, AIUsage, Settings, Support and Mirror; no view has loaded yet.
    m_engine.viewModels = {m_shell.get(),        m_calcView.get(),    m_aiUsageView.get(),
                           m_settingsView.get(), m_supportView.get(), m_mirrorView.get()};

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
            m_x, [&overlay](NotchOverlayController::MouseEvent type, int x, int y) {
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
    // The Support tool holds the mail form.
    commands.emailSupport = [&overlay] {
        overlay.state().setTab(NotchTab::support);
        overlay.setExpanded(true, "email support");
    };
    commands.showSettings = [this] { showSettings(); };
    commands.quit = [] { QCoreApplication::quit(); };
    m_tray = std::make_unique<TrayMenu>(statusMenuRows(commands));
    m_shell->setHasTray(m_tray->isShown());
    DebugLog::write(
        [&] { return std::string("launch: tray icon ") + (m_tray->isShown() ? "shown" : "not shown"); });
    addInstanceCommands(overlay);

    // Demo mode shows something playing, so recordings have a live activity from the start.
    if (DemoMode::isOn()) {
        m_activities.set(LiveActivity{LiveActivity::Media{"Night Drive", "The Midnight Hours", true}},
                         LiveActivityCenter::Source::media);
    }
}

void Application::launch() {
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
