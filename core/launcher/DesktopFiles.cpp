#include "launcher/DesktopFiles.h"

#include "monitors/DesktopEntries.h"
#include "support/ReadFile.h"

namespace vantrelle {
namespace {

// The files an id may name inside one folder: "a-b-c" is a-b-c.desktop, or a/b-c.desktop, a/b/c.desktop.
std::vector<std::filesystem::path> candidates(const std::filesystem::path& folder, const std::string& id) {
    std::vector<std::filesystem::path> files{folder / (id + ".desktop")};
    std::string relative = id;
    for (std::size_t dash = relative.find('-'); dash != std::string::npos;
         dash = relative.find('-', dash + 1)) {
        relative[dash] = '/';
        files.push_back(folder / (relative + ".desktop"));
    }
    return files;
}

}  // namespace

std::optional<LauncherApp> DesktopFiles::find(const std::string& id) const {
    if (id.empty() || id.find('/') != std::string::npos) return std::nullopt;
    for (const auto& folder : m_folders) {
        for (const auto& file : candidates(folder, id)) {
            std::error_code error;
            if (!std::filesystem::is_regular_file(file, error)) continue;
            // The first file found decides, even when it hides the application (Hidden=true).
            const auto text = readWholeFile(file);
            if (!text) return std::nullopt;
            const auto entry = parseDesktopEntry(id, *text);
            if (!entry) return std::nullopt;
            return LauncherApp{id, entry->name, entry->icon, file.string()};
        }
    }
    return std::nullopt;
}

}  // namespace vantrelle
