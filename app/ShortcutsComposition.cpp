#include "ShortcutsComposition.h"

#include <random>

#include "ShellModel.h"
#include "support/SharedInstance.h"

namespace vantrelle {

ShortcutsComposition::ShortcutsComposition(Deps deps)
    : m_portal(PortalHotKeys::probe(QDBusConnection::sessionBus())),
      m_x11(deps.x),
      m_shortcuts(deps.defaults, m_portal ? static_cast<HotKeys&>(*m_portal) : m_x11, deps.scheduler),
      m_game(deps.scheduler, deps.defaults, deps.notifications, std::random_device{}()),
      m_shortcutsView(m_shortcuts),
      m_gameView(m_game) {
    SharedInstance<ShortcutsViewModel>::install(&m_shortcutsView);
    SharedInstance<TavoRunViewModel>::install(&m_gameView);
}

ShortcutsComposition::~ShortcutsComposition() {
    SharedInstance<ShortcutsViewModel>::install(nullptr);
    SharedInstance<TavoRunViewModel>::install(nullptr);
}

void ShortcutsComposition::wireServices(AppServices& services) {
    services.onInstallShortcuts = [this](std::function<void(ShortcutTarget)> onFire) {
        m_shortcuts.onFire = std::move(onFire);
        m_shortcuts.registerAll();
    };
    services.onIsGamePlaying = [this] { return m_game.isPlaying(); };
}

void ShortcutsComposition::wireShell(ShellModel& shell) {
    shell.registerToolView(NotchTab::game, QStringLiteral("TavoRunView"));
}

}  // namespace vantrelle
