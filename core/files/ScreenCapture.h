#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/Environment.h"
#include "support/AppPaths.h"

namespace vantrelle {

// The PNG "Software" text of a file, from its tEXt or uncompressed iTXt chunks; nothing for other files.
[[nodiscard]] std::optional<std::string> pngSoftwareText(const std::filesystem::path& file);

// Whether a screenshot tool wrote the file: its PNG "Software" text names gnome-screenshot, GNOME
// Shell, Spectacle, Flameshot, grim or scrot. A copied or downloaded image says nothing of the kind.
[[nodiscard]] bool isScreenCapture(const std::filesystem::path& file);

// The folder that receives screenshots: VANTRELLE_SCREENSHOT_DIR (unchecked); GNOME's
// Pictures/Screenshots where it exists; Spectacle's configured folder where it exists; else Pictures.
[[nodiscard]] std::filesystem::path screenshotFolder(const Environment& environment, const AppPaths& paths);

}  // namespace vantrelle
