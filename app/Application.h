#pragma once

#include <memory>
#include <optional>

#include "AIUsageViewModel.h"
#include "AppServices.h"
#include "CalcViewModel.h"
#include "CameraProbe.h"
#include "CanberraSoundPlayer.h"
#include "InotifyFileWatcher.h"
#include "ProcProcessTable.h"
#include "QtHttpClient.h"
#include "QtMainScheduler.h"
#include "QtScreenSource.h"
#include "QuickOverlayWindows.h"
#include "RemindersViewModel.h"
#include "ShellEngine.h"
#include "ShellModel.h"
#include "ThreadQueue.h"
#include "TodayViewModel.h"
#include "TrayMenu.h"
#include "XdgAutostart.h"
#include "agents/AIUsageModel.h"
#include "agents/ClaudeAlertCenter.h"
#include "agents/ClaudeHookSwitch.h"
#include "agents/ClaudeHooks.h"
#include "app/AppDelegate.h"
#include "calc/CalcModel.h"
#include "calc/RatesService.h"
#include "schedule/CalendarLibrary.h"
#include "schedule/CalendarService.h"
#include "schedule/FolderCalendarSource.h"
#include "schedule/ReminderList.h"
#include "support/JsonDefaultsStore.h"
#include "wrapped/WrappedHistory.h"
#include "x11/DragPasteboard.h"
#include "x11/PointerMonitor.h"
#include "x11/X11Desktop.h"
#include "x11/XConnection.h"

namespace vantrelle {

// The composition root: builds the shared instances with their real adapters, in dependency order,
// and hands control to the launch sequence.
class Application {
public:
    explicit Application(const Environment& environment);
    ~Application();

    void launch();

private:
    std::unique_ptr<NotchOverlayController> makeOverlay();
    void wirePlatform(NotchOverlayController& overlay);
    void wireCalendarChooser();
    [[nodiscard]] std::optional<Rect> declaredNotch() const;

    const Environment& m_environment;
    AppPaths m_paths;
    // Built before every store, so the files are in place when the stores open them.
    struct LaunchFilesReady {
        explicit LaunchFilesReady(const AppPaths& paths);
    } m_launchFilesReady;
    QtMainScheduler m_scheduler;
    ThreadQueueFactory m_queues;
    JsonDefaultsStore m_defaults;
    XdgAutostart m_loginItem;
    AppSettings m_settings;
    LiveActivityCenter m_activities;
    XConnection m_x;  // the X11 adapters' one connection
    X11Desktop m_desktop;
    CameraProbe m_cameraProbe;
    CameraUse m_cameraUse;
    CanberraSoundPlayer m_sounds;
    X11DragPasteboard m_pasteboard;
    AppServices m_services;
    InotifyFileWatcher m_fileWatcher;
    ClaudeHooks m_claudeHooks;
    ClaudeHookSwitch m_hookSwitch;
    ClaudeAlertCenter m_claudeAlerts;
    QtHttpClient m_http;
    RatesService m_rates;
    CalcModel m_calc;
    ProcProcessTable m_processes;
    WrappedHistory m_wrappedHistory;
    AIUsageModel m_aiUsage;
    // Calendars: the files, the source that watches them, today's events and reminders.
    CalendarLibrary m_calendarLibrary;
    FolderCalendarSource m_calendarSource;
    CalendarService m_calendar;
    ReminderList m_reminders;
    QtScreenSource m_screens;
    // The view models outlive the engine; the destructor closes the views before anything else goes.
    std::unique_ptr<ShellModel> m_shell;
    std::unique_ptr<CalcViewModel> m_calcView;
    std::unique_ptr<AIUsageViewModel> m_aiUsageView;
    std::unique_ptr<TodayViewModel> m_todayView;
    std::unique_ptr<RemindersViewModel> m_remindersView;
    ShellEngine m_engine;
    QuickOverlayWindows m_windows;
    LaunchHooks m_hooks;
    AppDelegate m_delegate;
    std::unique_ptr<PointerMonitor> m_pointer;
    std::unique_ptr<TrayMenu> m_tray;
};

}  // namespace vantrelle
