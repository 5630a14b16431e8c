#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "menubar/MenuBarRules.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "platform/TrayItems.h"
#include "support/Signal.h"

namespace vantrelle {

struct MenuBarIcon {
    std::string id;  // the app's name, "#", its index among the app's icons, "#", the process id
    std::int32_t pid = 0;
    std::string appName;
    std::string label;
    std::optional<Rect> frame;  // where the desktop tells it; without one, never hidden and kept in order
    bool isHidden = false;
    std::string address;  // where the item answers
    std::string iconName;
    std::string iconThemePath;
    TrayPixmap pixmap;  // the item's own picture in the size nearest the view's; empty without one

    bool operator==(const MenuBarIcon&) const = default;
};

// The tray icons of running programs, which of them the notch hides, and opening one for the user.
// Scans run on the main thread, only while a view watches.
class MenuBarIcons {
public:
    static constexpr double kPollInterval = 2.0;
    static constexpr double kCollapseDelay = 0.35;  // for the panel to be out of the way
    static constexpr double kIgnoreClicksFor = 1.0;
    static constexpr int kIconSide = 18;  // the side, in pixels, the Menu Bar tool draws an icon at

    struct Dependencies {
        TrayItems& tray;
        const ScreenSource& screens;
        Scheduler& scheduler;
        const Clock& clock;
        // Where the desktop reports an icon to be; nothing where it doesn't.
        std::function<std::optional<Rect>(const TrayItem&)> frameOf;
        // The right edge of the focused program's menus, where the desktop has a global menu bar.
        std::function<double()> menusEnd;
    };

    explicit MenuBarIcons(Dependencies deps);
    ~MenuBarIcons();
    MenuBarIcons(const MenuBarIcons&) = delete;
    MenuBarIcons& operator=(const MenuBarIcons&) = delete;

    // A view that shows icons calls this with true on appearing and false on going away.
    void setActive(bool active);
    void refresh();
    // The prompt's button: looks for a watcher again.
    void requestAccess() { refresh(); }
    // Closes the panel, then opens the icon once the panel is gone.
    void open(const MenuBarIcon& icon, const std::function<void()>& collapse);

    [[nodiscard]] const std::vector<MenuBarIcon>& icons() const { return m_icons; }
    [[nodiscard]] std::vector<MenuBarIcon> hidden() const;
    [[nodiscard]] std::vector<MenuBarIcon> visible() const;
    [[nodiscard]] bool trusted() const { return m_trusted; }
    [[nodiscard]] const std::optional<std::string>& status() const { return m_status; }
    [[nodiscard]] const std::optional<Date>& ignoreClicksUntil() const { return m_ignoreClicksUntil; }
    [[nodiscard]] int watchers() const { return m_watchers; }
    [[nodiscard]] bool isPolling() const { return m_timer.isActive(); }

    // One listing with the rules applied.
    [[nodiscard]] std::vector<MenuBarIcon> scan();

    Signal<> changed;

private:
    void performOpen(const MenuBarIcon& icon);

    Dependencies m_deps;
    std::vector<MenuBarIcon> m_icons;
    bool m_trusted = false;
    std::optional<std::string> m_status;
    std::optional<Date> m_ignoreClicksUntil;
    int m_watchers = 0;
    RepeatingTimer m_timer;
    WorkItem m_pendingOpen;
};

}  // namespace vantrelle
