#pragma once

#include <string>

namespace vantrelle {

// One application of the launcher, from its .desktop file.
struct LauncherApp {
    std::string id;    // desktop id, the file name without ".desktop"
    std::string name;  // Name=
    std::string icon;  // Icon=: a theme icon name, a full path, or empty
    std::string file;  // the .desktop file, for `gio launch`
    bool operator==(const LauncherApp&) const = default;
};

}  // namespace vantrelle
