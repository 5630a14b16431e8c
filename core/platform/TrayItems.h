#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vantrelle {

// One size of an item's own picture: ARGB32 pixels row by row, each in network byte order (A, R, G, B).
struct TrayPixmap {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> argb;

    // Programs send what they like: a picture is only usable when its bytes cover its size.
    [[nodiscard]] bool isValid() const {
        return width > 0 && height > 0 &&
               argb.size() >= static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
    }
    bool operator==(const TrayPixmap&) const = default;
};

// One tray icon of a running program, as the desktop's tray watcher lists it.
struct TrayItem {
    std::string address;        // where the item answers; stable while it runs
    std::string id;             // the program's own name for the item, may be empty
    std::string title;          // the item's title for people, may be empty
    std::string iconName;       // a theme icon's name, may be empty
    std::int32_t pid = 0;       // 0 when unknown
    std::string iconThemePath;  // where the program keeps icons of its own, may be empty
    std::vector<TrayPixmap> iconPixmaps;

    bool operator==(const TrayItem&) const = default;
};

// The desktop's tray watcher. Blocking but short: calls time out quickly.
class TrayItems {
public:
    virtual ~TrayItems() = default;
    // False on desktops without a watcher: no program there can show tray icons.
    [[nodiscard]] virtual bool hasWatcher() = 0;
    [[nodiscard]] virtual std::vector<TrayItem> items() = 0;
    // Opens the item as a click at (x, y) would: its main action, else its menu. False when neither
    // answered.
    virtual bool activate(const std::string& address, int x, int y) = 0;
    // Called when an item announces a new picture; an empty function stops it. Watchers that can't
    // tell leave the pictures to the next listing.
    // NOLINTNEXTLINE(performance-unnecessary-value-param)
    virtual void watchIcons(std::function<void()> /*onNewIcon*/) {}
};

}  // namespace vantrelle
