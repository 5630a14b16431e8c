#include "menubar/MenuBarIcons.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "support/DebugLog.h"

namespace vantrelle {

MenuBarIcons::MenuBarIcons(Dependencies deps) : m_deps(std::move(deps)) {
    // A new picture shows at once rather than at the next poll; unwatched, nobody would see it.
    m_deps.tray.watchIcons([this] {
        if (m_watchers > 0) refresh();
    });
}

MenuBarIcons::~MenuBarIcons() {
    m_deps.tray.watchIcons({});
}

void MenuBarIcons::setActive(bool active) {
    if (active) {
        if (m_watchers++ > 0) return;
        refresh();
        m_timer = m_deps.scheduler.repeat(kPollInterval, [this] { refresh(); });
        return;
    }
    if (m_watchers == 0) return;
    if (--m_watchers == 0) m_timer.cancel();
}

void MenuBarIcons::refresh() {
    const bool trusted = m_deps.tray.hasWatcher();
    auto icons = trusted ? scan() : std::vector<MenuBarIcon>{};
    if (trusted == m_trusted && icons == m_icons) return;
    if (trusted != m_trusted) {
        DebugLog::write(trusted ? "menu bar: tray watcher found"
                                : "menu bar: no tray watcher on this desktop");
    }
    m_trusted = trusted;
    m_icons = std::move(icons);
    changed.emit();
}

std::vector<MenuBarIcon> MenuBarIcons::scan() {
    const auto screens = m_deps.screens.screens();
    const auto range = notchRange(screens);
    const double right = screenRight(screens, m_deps.screens.mainScreenIndex());
    const double menusEnd = m_deps.menusEnd ? m_deps.menusEnd() : 0;

    std::vector<MenuBarIcon> icons;
    std::map<std::int32_t, int> perProcess;  // the index of each icon among its program's
    std::map<std::string, int> seen;         // ids stay unique when pids are unknown
    for (const TrayItem& item : m_deps.tray.items()) {
        MenuBarIcon icon;
        icon.pid = item.pid;
        icon.address = item.address;
        icon.iconName = item.iconName;
        icon.iconThemePath = item.iconThemePath;
        if (const TrayPixmap* chosen = closestPixmap(item.iconPixmaps, kIconSide)) icon.pixmap = *chosen;
        icon.appName = cleanAppName(!item.title.empty() ? item.title : item.id);
        icon.label = !item.title.empty() ? item.title : (!item.id.empty() ? item.id : icon.appName);
        if (m_deps.frameOf) icon.frame = m_deps.frameOf(item);
        // A frame without width can't be clicked or placed: the icon counts as unplaced.
        if (icon.frame && !(icon.frame->width > 0)) icon.frame.reset();
        icon.isHidden = icon.frame && isBehindSomething(*icon.frame, range, menusEnd, right);
        const int index = item.pid != 0 ? perProcess[item.pid]++ : seen[icon.appName]++;
        icon.id = (item.id.empty() ? icon.appName : item.id) + "#" + std::to_string(index) + "#" +
                  std::to_string(item.pid);
        icons.push_back(std::move(icon));
    }
    // Placed icons by their left edge; unplaced ones keep the watcher's order after them.
    std::stable_sort(icons.begin(), icons.end(), [](const MenuBarIcon& a, const MenuBarIcon& b) {
        if (a.frame.has_value() != b.frame.has_value()) return a.frame.has_value();
        return a.frame && a.frame->minX() < b.frame->minX();
    });
    return icons;
}

std::vector<MenuBarIcon> MenuBarIcons::hidden() const {
    std::vector<MenuBarIcon> out;
    std::copy_if(m_icons.begin(), m_icons.end(), std::back_inserter(out),
                 [](const auto& i) { return i.isHidden; });
    return out;
}

std::vector<MenuBarIcon> MenuBarIcons::visible() const {
    std::vector<MenuBarIcon> out;
    std::copy_if(m_icons.begin(), m_icons.end(), std::back_inserter(out),
                 [](const auto& i) { return !i.isHidden; });
    return out;
}

void MenuBarIcons::open(const MenuBarIcon& icon, const std::function<void()>& collapse) {
    if (m_status) {
        m_status.reset();
        changed.emit();
    }
    m_ignoreClicksUntil = m_deps.clock.now() + kIgnoreClicksFor;
    if (collapse) collapse();
    m_pendingOpen = m_deps.scheduler.schedule(kCollapseDelay, [this, icon] { performOpen(icon); });
}

void MenuBarIcons::performOpen(const MenuBarIcon& icon) {
    const Point at = icon.frame ? icon.frame->center() : Point{};
    if (m_deps.tray.activate(icon.address, static_cast<int>(std::lround(at.x)),
                             static_cast<int>(std::lround(at.y))))
        return;
    DebugLog::write([&] { return "menu bar: " + icon.label + " did not answer activation"; });
    m_status = icon.isHidden ? icon.appName +
                                   " doesn't let other apps open its menu while it's hidden. Quit an app you "
                                   "don't need to make room."
                             : icon.appName + " doesn't let other apps open its menu.";
    changed.emit();
}

}  // namespace vantrelle
