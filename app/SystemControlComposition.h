#pragma once

#include <functional>

#include "MenuBarViewModel.h"
#include "QtProcessRunner.h"
#include "QuickTogglesViewModel.h"
#include "menubar/MenuBarIcons.h"
#include "menubar/SniTrayItems.h"
#include "support/AppPaths.h"
#include "toggles/QtProcessLauncher.h"
#include "toggles/QuickToggles.h"
#include "toggles/UDisksRemovableDisks.h"

namespace vantrelle {

class ShellModel;
class ShellEngine;
class SettingsViewModel;

// System control: the quick toggles on this desktop's programs and the tray icons from its watcher,
// with their view models. Owned by the composition root.
class SystemControlComposition {
public:
    struct Deps {
        const Environment& environment;
        const AppPaths& paths;
        Scheduler& scheduler;
        QueueFactory& queues;
        const ScreenSource& screens;
        AppSettings& settings;
        // Closes the notch panel, for what must not have it in the way.
        std::function<void()> collapse;
    };

    explicit SystemControlComposition(Deps deps);
    SystemControlComposition(const SystemControlComposition&) = delete;
    SystemControlComposition& operator=(const SystemControlComposition&) = delete;

    // The Menu Bar tool, the toggles tile, their singletons, and the settings page's list.
    void wire(ShellModel& shell, ShellEngine& engine, SettingsViewModel& settings);
    // At quit: the keep-awake child goes with the program.
    void quit() { m_toggles.endKeepAwake(); }
    // The overlay ignores clicks until then: they are the Menu Bar tool's own, opening an icon.
    [[nodiscard]] std::optional<Date> ignoreClicksUntil() const { return m_menuBar.ignoreClicksUntil(); }

private:
    QtProcessLauncher m_launcher;
    QtProcessRunner m_runner;
    UDisksRemovableDisks m_disks;
    QuickToggles m_toggles;
    SniTrayItems m_tray;
    MenuBarIcons m_menuBar;

public:
    QuickTogglesViewModel togglesView;
    MenuBarViewModel menuBarView;
};

}  // namespace vantrelle
