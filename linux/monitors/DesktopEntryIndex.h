#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "monitors/DesktopEntries.h"
#include "platform/Environment.h"

namespace vantrelle {

// The installed applications' .desktop files, from $XDG_DATA_HOME and $XDG_DATA_DIRS, read once on
// first use. An id found in an earlier folder hides the same id further on, as the XDG rules say.
class DesktopEntryIndex {
public:
    explicit DesktopEntryIndex(std::vector<std::filesystem::path> applicationFolders)
        : m_folders(std::move(applicationFolders)) {}
    [[nodiscard]] static std::vector<std::filesystem::path> foldersFrom(const Environment& environment);

    [[nodiscard]] const std::vector<DesktopEntry>& entries();

private:
    std::vector<std::filesystem::path> m_folders;
    std::optional<std::vector<DesktopEntry>> m_entries;
};

}  // namespace vantrelle
