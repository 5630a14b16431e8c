#pragma once

#include <QQuickView>
#include <memory>

#include "DevServersViewModel.h"
#include "QtProcessRunner.h"
#include "ScreenTimeViewModel.h"
#include "ShellEngine.h"
#include "SystemStatsViewModel.h"
#include "WrappedViewModel.h"
#include "agents/AIUsageModel.h"
#include "app/LaunchHooks.h"
#include "monitors/BatteryMonitor.h"
#include "monitors/DesktopEntryIndex.h"
#include "monitors/DevServerMonitor.h"
#include "monitors/LogindWatcher.h"
#include "monitors/LsofListeningPorts.h"
#include "monitors/ProcListeningPorts.h"
#include "monitors/ProcProcessControl.h"
#include "monitors/ProcSystemCounters.h"
#include "monitors/ScreenTimeTracker.h"
#include "monitors/SystemStats.h"
#include "monitors/X11ScreenActivity.h"
#include "support/AppPaths.h"
#include "wrapped/CursorMileage.h"
#include "wrapped/WrappedHistory.h"

namespace vantrelle {

// The system monitors and the recap with their adapters and view models: dev servers, screen time,
// cursor mileage, system figures and Wrapped. Owned by the composition root.
class MonitorsComposition {
public:
    struct Deps {
        const AppPaths& paths;
        const Environment& environment;
        Scheduler& scheduler;
        QueueFactory& queues;
        XConnection& x;
        WrappedHistory& history;
        AIUsageModel& aiUsage;
        ShellEngine& engine;
        bool demoMode = false;
        const BatteryMonitor* battery = nullptr;  // the power daemon's battery, where there is one
    };

    explicit MonitorsComposition(Deps deps);
    ~MonitorsComposition();
    MonitorsComposition(const MonitorsComposition&) = delete;
    MonitorsComposition& operator=(const MonitorsComposition&) = delete;

    // Starts screen time and the mileage's minute flush; a background service.
    void start();
    // Saves what is unsaved; at the end of the process.
    void flush();
    // For every pointer position, beside the overlay.
    void recordPointer(int x, int y) noexcept { m_mileage.record(x, y); }
    // The size of a pixel of the screen the pointer is on, from the screen's physical size.
    void setMetresPerPixel(double metres) { m_mileage.setMetresPerPixel(metres); }
    void registerHooks(LaunchHooks& hooks);
    void showWrapped();

    [[nodiscard]] WrappedSummary makeSummary(WrappedPeriod period) const;
    // For the Day Progress tile and the launcher's most used applications.
    [[nodiscard]] CursorMileage& mileage() { return m_mileage; }
    [[nodiscard]] const ScreenTimeTracker& screenTime() const { return m_screenTime; }

private:
    void writeWrappedCards(const std::string& folder) const;

    Deps m_deps;
    ProcListeningPorts m_procPorts;
    QtProcessRunner m_runner;
    LsofListeningPorts m_lsofPorts;
    FallbackListeningPorts m_ports;
    ProcProcessControl m_processes;
    DevServerMonitor m_devServers;
    DesktopEntryIndex m_entries;
    X11ScreenActivity m_activity;
    ScreenTimeTracker m_screenTime;
    LogindWatcher m_logind;
    CursorMileage m_mileage;
    ProcSystemCounters m_counters;
    BatteryCounters m_batteryCounters;
    SystemStats m_stats;
    RepeatingTimer m_mileageFlush;
    std::unique_ptr<QQuickView> m_wrappedWindow;

public:
    // After the models they read, which they are built from.
    DevServersViewModel devServersView;
    ScreenTimeViewModel screenTimeView;
    SystemStatsViewModel systemStatsView;
    WrappedViewModel wrappedView;
};

}  // namespace vantrelle
