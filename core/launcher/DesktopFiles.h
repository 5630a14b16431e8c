#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "launcher/LauncherApp.h"

namespace vantrelle {

// Finds applications by desktop id in the applications folders, earliest folder first, as the XDG
// rules say. Read on every call, so a newly installed or removed application shows at the next look.
class DesktopFiles {
public:
    explicit DesktopFiles(std::vector<std::filesystem::path> applicationFolders)
        : m_folders(std::move(applicationFolders)) {}

    // Nothing for an id without a readable application entry (missing, hidden, not an application).
    [[nodiscard]] std::optional<LauncherApp> find(const std::string& id) const;

private:
    std::vector<std::filesystem::path> m_folders;
};

}  // namespace vantrelle
