#pragma once

#include "AppServices.h"
#include "ShortcutsViewModel.h"
#include "TavoRunViewModel.h"
#include "game/TavoRun.h"
#include "shortcuts/PortalHotKeys.h"
#include "shortcuts/ToolShortcuts.h"
#include "shortcuts/X11HotKeys.h"

namespace vantrelle {

class ShellModel;
class ShellEngine;

// Global shortcuts and the game with their adapters and view models. Owned by the composition root;
// the overlay reaches both through the app's services.
class ShortcutsComposition {
public:
    struct Deps {
        XConnection& x;
        DefaultsStore& defaults;
        Scheduler& scheduler;
        NotificationCenter& notifications;
    };

    // Installs the view models as the QML singletons' instances.
    explicit ShortcutsComposition(Deps deps);
    ~ShortcutsComposition();
    ShortcutsComposition(const ShortcutsComposition&) = delete;
    ShortcutsComposition& operator=(const ShortcutsComposition&) = delete;

    // The overlay's start registers the shortcuts; its mouse-left rule asks whether a run is going.
    void wireServices(AppServices& services);
    // The game's tool view.
    void wireShell(ShellModel& shell, ShellEngine& engine);

private:
    // The desktop's portal where it offers one, else key grabs on the X server.
    std::unique_ptr<PortalHotKeys> m_portal;
    X11HotKeys m_x11;
    ToolShortcuts m_shortcuts;
    TavoRun m_game;
    ShortcutsViewModel m_shortcutsView;
    TavoRunViewModel m_gameView;
};

}  // namespace vantrelle
