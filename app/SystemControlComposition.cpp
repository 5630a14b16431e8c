#include "SystemControlComposition.h"

#include <QDBusConnection>

#include "SettingsViewModel.h"
#include "ShellEngine.h"
#include "ShellModel.h"
#include "platform/Clock.h"

namespace vantrelle {

namespace {

ToggleTable tableFor(const Environment& environment, RemovableDisks& disks) {
    return ToggleTable(DesktopTools::fromEnvironment(environment), disks.available());
}

}  // namespace

SystemControlComposition::SystemControlComposition(Deps deps)
    : m_disks(QDBusConnection::systemBus()),
      m_toggles({tableFor(deps.environment, m_disks), m_launcher, m_runner, &m_disks, deps.queues,
                 deps.scheduler, SystemClock::shared(), deps.paths.home}),
      m_tray(QDBusConnection::sessionBus()),
      // The tray watcher doesn't say where the panel draws its icons: none is placed, none hidden.
      m_menuBar({m_tray, deps.screens, deps.scheduler, SystemClock::shared(), {}, {}}),
      togglesView(m_toggles, deps.settings, deps.collapse),
      menuBarView(m_menuBar, deps.collapse) {}

void SystemControlComposition::wire(ShellModel& shell, ShellEngine& engine, SettingsViewModel& settings) {
    shell.registerToolView(NotchTab::menuBar, QStringLiteral("MenuBarView"));
    shell.registerTileView(DashTile::quickToggles, QStringLiteral("QuickTogglesTile"));
    engine.viewModels.quickToggles = &togglesView;
    engine.viewModels.menuBar = &menuBarView;
    settings.setToggleAvailability(
        [this](QuickToggle toggle) { return m_toggles.table().available(toggle); });
}

}  // namespace vantrelle
