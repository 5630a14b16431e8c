#include "LauncherComposition.h"

#include "monitors/DesktopEntryIndex.h"
#include "platform/Clock.h"
#include "support/DemoMode.h"

namespace vantrelle {

LauncherComposition::LauncherComposition(Deps deps)
    : m_deps(deps),
      m_launcher(LauncherModel::Deps{m_deps.scheduler, m_deps.queues, m_runner, SystemClock::shared(),
                                     DesktopEntryIndex::foldersFrom(m_deps.environment),
                                     m_deps.paths.configHome / "plasma-org.kde.plasma.desktop-appletsrc",
                                     m_deps.environment.get("XDG_CURRENT_DESKTOP").value_or(""),
                                     m_deps.paths.dataRoot() / "screentime",
                                     [this] { return m_deps.screenTime.today(); }}),
      m_share(m_deps.mileage, SystemClock::shared(), m_clipboard),
      m_dayProgress(DayProgressModel::Deps{
          SystemClock::shared(), m_deps.scheduler, m_deps.settings,
          [this] {
              return DemoMode::isOn() ? kDemoMetresToday
                                      : metresToday(m_deps.mileage, SystemClock::shared().now());
          }}),
      launcherView(m_launcher,
                   [this] {
                       if (m_shell) m_shell->collapse();
                   }),
      dayProgressView(m_dayProgress, m_share) {}

void LauncherComposition::wire(ShellModel& shell, ShellEngine& engine) {
    m_shell = &shell;
    shell.registerTileView(DashTile::launcher, QStringLiteral("LauncherTile"));
    shell.registerTileView(DashTile::dayProgress, QStringLiteral("DayProgressTile"));
    engine.viewModels.launcher = &launcherView;
    engine.viewModels.dayProgress = &dayProgressView;
}

void LauncherComposition::registerHooks(LaunchHooks& hooks) {
    hooks.add({LaunchHookSlot::testShare, "VANTRELLE_TEST_SHARE", LaunchHook::isOne, 2.0,
               [this](const std::string&) {
                   m_share.share();
                   if (m_shell) m_shell->collapse();
               }});
}

}  // namespace vantrelle
