#include "ShortcutsComposition.h"

#include <random>

#include "ShellEngine.h"
#include "ShellModel.h"

namespace vantrelle {

ShortcutsComposition::ShortcutsComposition(Deps deps)
    : m_portal(PortalHotKeys::probe(QDBusConnection::sessionBus())),
      m_x11(deps.x),
      m_shortcuts(deps.defaults, m_portal ? static_cast<HotKeys&>(*m_portal) : m_x11, deps.scheduler),
      m_game(deps.scheduler, deps.defaults, deps.notifications, std::random_device{}()),
      m_shortcutsView(m_shortcuts),
      m_gameView(m_game) {}

ShortcutsComposition::~ShortcutsComposition() = default;

void ShortcutsComposition::wireServices(AppServices& services) {
    services.onInstallShortcuts = [this](std::function<void(ShortcutTarget)> onFire) {
        m_shortcuts.onFire = std::move(onFire);
        m_shortcuts.registerAll();
    };
    services.onIsGamePlaying = [this] { return m_game.isPlaying(); };
}

void ShortcutsComposition::wireShell(ShellModel& shell, ShellEngine& engine) {
    shell.registerToolView(NotchTab::game, QStringLiteral("TavoRunView"));
    engine.viewModels.shortcuts = &m_shortcutsView;
    engine.viewModels.game = &m_gameView;
}

}  // namespace vantrelle
