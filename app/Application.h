#pragma once

#include <memory>
#include <optional>

#include "AIUsageViewModel.h"
#include "AppServices.h"
#include "CalcViewModel.h"
#include "CameraProbe.h"
#include "CanberraSoundPlayer.h"
#include "FocusViewModel.h"
#include "InotifyFileWatcher.h"
#include "LauncherComposition.h"
#include "MediaViewModel.h"
#include "MirrorViewModel.h"
#include "MonitorsComposition.h"
#include "NotesViewModel.h"
#include "NoticesComposition.h"
#include "ProcProcessTable.h"
#include "QtHttpClient.h"
#include "QtImageCodec.h"
#include "QtImageDecoder.h"
#include "QtMainScheduler.h"
#include "QtScreenSource.h"
#include "QuickOverlayWindows.h"
#include "RemindersViewModel.h"
#include "SettingsViewModel.h"
#include "SettingsWindow.h"
#include "ShelfViewModel.h"
#include "ShellEngine.h"
#include "ShellModel.h"
#include "ShortcutsComposition.h"
#include "StatusLineComposition.h"
#include "SupportViewModel.h"
#include "SystemControlComposition.h"
#include "TasksViewModel.h"
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
#include "files/DownloadsWatcher.h"
#include "files/ScreenshotWatcher.h"
#include "files/ShelfStore.h"
#include "focus/PomodoroModel.h"
#include "focus/PomodoroNotifier.h"
#include "focus/QuickTimerModel.h"
#include "focus/StopwatchModel.h"
#include "instance/InstanceCommands.h"
#include "instance/LocalInstanceChannel.h"
#include "media/DesktopPlayerApps.h"
#include "media/MediaController.h"
#include "media/MprisMediaProvider.h"
#include "mirror/MirrorCamera.h"
#include "notes/NotesStore.h"
#include "notes/TaskStore.h"
#include "notifications/DBusDesktopNotifications.h"
#include "schedule/CalendarLibrary.h"
#include "schedule/CalendarPreferences.h"
#include "schedule/CalendarService.h"
#include "schedule/FolderCalendarSource.h"
#include "schedule/LiveCalendarSettings.h"
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
    // With an instance channel whose lock this process holds, the program answers other processes'
    // requests on it (a second launch, `vantrelle --quit`).
    explicit Application(const Environment& environment, LocalInstanceChannel* instance = nullptr);
    ~Application();

    void launch();

private:
    std::unique_ptr<NotchOverlayController> makeOverlay();
    void wirePlatform(NotchOverlayController& overlay);
    void registerServices();
    void wireCalendarChooser();
    static void chooseCalendarFolder(std::function<void(std::filesystem::path)> answer);
    [[nodiscard]] std::optional<Rect> declaredNotch() const;
    void wireFocus();
    [[nodiscard]] TimerReadings focusReadings() const;
    void showSettings();
    void addSupportAndMirror();
    void addInstanceCommands(NotchOverlayController& overlay);
    [[nodiscard]] PermissionStatus permissions() const;

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
    MirrorCamera m_mirrorCamera;
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
    QtImageCodec m_imageCodec;
    ImageConverter m_imageConverter;
    ShelfStore m_shelf;
    DownloadsWatcher m_downloads;
    ScreenshotWatcher m_screenshots;
    // Focus: the timer, its notifications, the quick timer and the stopwatch.
    DBusDesktopNotifications m_desktopNotifications;
    PomodoroNotifier m_pomodoroNotifier;
    PomodoroModel m_pomodoro;
    QuickTimerModel m_quickTimer;
    StopwatchModel m_stopwatch;
    NotesStore m_notes;
    TaskStore m_tasks;
    // Media: the players on the session bus, the model of what plays, the installed players to open.
    QtImageDecoder m_imageDecoder;
    MprisMediaProvider m_mediaProvider;
    MediaController m_media;
    DesktopPlayerApps m_playerApps;
    // Calendars: their settings, the files, the source that watches them, today's events and
    // reminders, and what applies a change of settings to all of them.
    CalendarPreferences m_calendarPreferences;
    CalendarLibrary m_calendarLibrary;
    FolderCalendarSource m_calendarSource;
    CalendarService m_calendar;
    ReminderList m_reminders;
    LiveCalendarSettings m_liveCalendarSettings;
    QtScreenSource m_screens;
    // The view models outlive the engine; the destructor closes the views before anything else goes.
    std::unique_ptr<ShellModel> m_shell;
    std::unique_ptr<CalcViewModel> m_calcView;
    std::unique_ptr<AIUsageViewModel> m_aiUsageView;
    std::unique_ptr<ShelfViewModel> m_shelfView;
    std::unique_ptr<FocusViewModel> m_focusView;
    std::unique_ptr<NotesViewModel> m_notesView;
    std::unique_ptr<TasksViewModel> m_tasksView;
    std::unique_ptr<MediaViewModel> m_mediaView;
    std::unique_ptr<SettingsViewModel> m_settingsView;
    std::unique_ptr<SupportViewModel> m_supportView;
    std::unique_ptr<MirrorViewModel> m_mirrorView;
    std::unique_ptr<TodayViewModel> m_todayView;
    std::unique_ptr<RemindersViewModel> m_remindersView;
    ShellEngine m_engine;
    std::unique_ptr<SettingsWindow> m_settingsWindow;  // goes before the engine it draws with
    QuickOverlayWindows m_windows;
    LaunchHooks m_hooks;
    AppDelegate m_delegate;
    std::unique_ptr<PointerMonitor> m_pointer;
    std::unique_ptr<TrayMenu> m_tray;
    // Dev servers, screen time, cursor mileage, system figures and Wrapped; goes before the engine.
    std::unique_ptr<NoticesComposition> m_notices;
    std::unique_ptr<MonitorsComposition> m_monitors;
    // The launcher and Day Progress; reads the monitors, so it goes first.
    std::unique_ptr<LauncherComposition> m_launcher;
    // Quick toggles and tray icons; goes before the engine.
    std::unique_ptr<SystemControlComposition> m_systemControl;
    // Global shortcuts and the game; goes before the engine.
    std::unique_ptr<ShortcutsComposition> m_shortcuts;
    LocalInstanceChannel* m_instance;
    InstanceCommands m_instanceCommands;
    std::unique_ptr<StatusLineComposition> m_statusLine;
};

}  // namespace vantrelle
