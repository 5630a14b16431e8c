#pragma once

#include "DayProgressViewModel.h"
#include "LauncherViewModel.h"
#include "QtClipboard.h"
#include "QtProcessRunner.h"
#include "ShellEngine.h"
#include "ShellModel.h"
#include "app/LaunchHooks.h"
#include "catalog/AppSettings.h"
#include "focus/DayProgressModel.h"
#include "launcher/LauncherModel.h"
#include "monitors/ScreenTimeTracker.h"
#include "platform/Environment.h"
#include "support/AppPaths.h"
#include "wrapped/CursorMileage.h"
#include "wrapped/MileageShare.h"

namespace vantrelle {

// The launcher and the Day Progress tile with its mileage share, with their adapters and view models.
// Owned by the composition root; goes before the monitors whose mileage and screen time it reads.
class LauncherComposition {
public:
    struct Deps {
        const AppPaths& paths;
        const Environment& environment;
        Scheduler& scheduler;
        QueueFactory& queues;
        AppSettings& settings;
        CursorMileage& mileage;
        const ScreenTimeTracker& screenTime;
    };

    explicit LauncherComposition(Deps deps);
    LauncherComposition(const LauncherComposition&) = delete;
    LauncherComposition& operator=(const LauncherComposition&) = delete;

    // Reads the launcher's list and starts its poll; a background service.
    void start() { m_launcher.start(); }
    // The tiles and their singletons; a launch folds the notch away.
    void wire(ShellModel& shell, ShellEngine& engine);
    void registerHooks(LaunchHooks& hooks);

private:
    Deps m_deps;
    QtProcessRunner m_runner;
    LauncherModel m_launcher;
    QtClipboard m_clipboard;
    MileageShare m_share;
    DayProgressModel m_dayProgress;
    ShellModel* m_shell = nullptr;

public:
    // After the models they read.
    LauncherViewModel launcherView;
    DayProgressViewModel dayProgressView;
};

}  // namespace vantrelle
