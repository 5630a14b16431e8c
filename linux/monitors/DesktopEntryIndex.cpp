#include "monitors/DesktopEntryIndex.h"

#include <algorithm>
#include <set>

#include "support/ReadFile.h"

namespace vantrelle {
namespace {

std::filesystem::path resolveProgram(const std::string& program) {
    if (program.empty()) return {};
    std::error_code error;
    std::filesystem::path path = program;
    if (!path.is_absolute()) {
        for (const char* folder : {"/usr/local/bin", "/usr/bin", "/bin"}) {
            if (std::filesystem::exists(std::filesystem::path(folder) / program, error)) {
                path = std::filesystem::path(folder) / program;
                break;
            }
        }
    }
    const auto canonical = std::filesystem::canonical(path, error);
    return error ? std::filesystem::path() : canonical;
}

}  // namespace

std::vector<std::filesystem::path> DesktopEntryIndex::foldersFrom(const Environment& environment) {
    std::vector<std::filesystem::path> folders;
    const auto home = environment.get("HOME").value_or("");
    const auto dataHome = environment.get("XDG_DATA_HOME").value_or("");
    folders.push_back(dataHome.starts_with('/') ? std::filesystem::path(dataHome)
                                                : std::filesystem::path(home) / ".local/share");
    std::string dirs = environment.get("XDG_DATA_DIRS").value_or("");
    if (dirs.empty()) dirs = "/usr/local/share:/usr/share";
    std::size_t start = 0;
    while (start <= dirs.size()) {
        const std::size_t end = std::min(dirs.find(':', start), dirs.size());
        const std::string folder = dirs.substr(start, end - start);
        if (folder.starts_with('/')) folders.emplace_back(folder);
        start = end + 1;
    }
    for (auto& folder : folders) folder /= "applications";
    return folders;
}

const std::vector<DesktopEntry>& DesktopEntryIndex::entries() {
    if (m_entries) return *m_entries;
    m_entries.emplace();
    std::set<std::string> seen;
    for (const auto& folder : m_folders) {
        std::error_code error;
        auto it = std::filesystem::recursive_directory_iterator(folder, error);
        for (; !error && it != std::filesystem::recursive_directory_iterator(); it.increment(error)) {
            const auto& path = it->path();
            if (path.extension() != ".desktop") continue;
            std::string id = std::filesystem::relative(path, folder, error).replace_extension().string();
            std::replace(id.begin(), id.end(), '/', '-');
            if (!seen.insert(id).second) continue;
            const auto text = readWholeFile(path);
            if (!text) continue;
            if (auto entry = parseDesktopEntry(id, *text)) {
                entry->resolved = resolveProgram(entry->program).string();
                m_entries->push_back(std::move(*entry));
            }
        }
    }
    return *m_entries;
}

}  // namespace vantrelle
