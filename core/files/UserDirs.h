#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "support/AppPaths.h"

namespace vantrelle {

// A folder of the XDG user directories ("DOWNLOAD", "PICTURES", "DESKTOP"), read from
// "user-dirs.dirs" in the config home the way xdg-user-dir reads it: "$HOME" expanded, relative
// values and values that are the home itself ignored. Nothing when the file doesn't name it.
[[nodiscard]] std::optional<std::filesystem::path> xdgUserDir(const AppPaths& paths, std::string_view name);

// The Downloads folder: the XDG one, else the home's "Downloads".
[[nodiscard]] std::filesystem::path downloadsFolder(const AppPaths& paths);

}  // namespace vantrelle
