#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrelle {

// What the screen time tracker and the launcher need of an application's .desktop file.
struct DesktopEntry {
    std::string id;        // file name without ".desktop", folders joined by "-"
    std::string name;      // Name= of the [Desktop Entry] group
    std::string program;   // the program of Exec= (or TryExec=), without arguments or an env prefix
    std::string resolved;  // `program` as a full path with links resolved, where the caller could
    std::string wmClass;   // StartupWMClass=
    std::string icon;      // Icon=: a theme icon name or a full path
    bool operator==(const DesktopEntry&) const = default;
};

// Reads one .desktop file; nothing for a hidden entry, one that isn't an application, or garbage.
[[nodiscard]] std::optional<DesktopEntry> parseDesktopEntry(std::string_view id, std::string_view text);

// The entry for a window: first by its program file (full path, then file name), then by its window
// class against StartupWMClass or the last part of the id, ignoring case.
[[nodiscard]] const DesktopEntry* matchDesktopEntry(const std::vector<DesktopEntry>& entries,
                                                    std::string_view executable,
                                                    std::string_view windowClass);

}  // namespace vantrelle
