#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vantrelle {

// One tray icon of a running program, as the desktop's tray watcher lists it.
struct TrayItem {
    std::string address;  // where the item answers; stable while it runs
    std::string id;       // the program's own name for the item, may be empty
    std::string title;    // the item's title for people, may be empty
    std::string iconName;
    std::int32_t pid = 0;  // 0 when unknown

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
};

}  // namespace vantrelle
