#include "toggles/DesktopTools.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>

namespace vantrelle {

namespace {

std::string lower(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

}  // namespace

DesktopTools::DesktopTools(std::vector<std::filesystem::path> searchPath, Desktop desktop)
    : m_searchPath(std::move(searchPath)), m_desktop(desktop) {}

DesktopTools DesktopTools::fromEnvironment(const Environment& environment) {
    std::vector<std::filesystem::path> folders;
    const std::string path = environment.get("PATH").value_or("");
    std::size_t start = 0;
    while (start <= path.size()) {
        const std::size_t end = std::min(path.find(':', start), path.size());
        // An empty entry would mean the working folder; a toggle never runs what happens to lie there.
        if (end > start && path[start] == '/') folders.emplace_back(path.substr(start, end - start));
        start = end + 1;
    }
    return DesktopTools(std::move(folders), desktopFrom(environment.get("XDG_CURRENT_DESKTOP").value_or("")));
}

DesktopTools::Desktop DesktopTools::desktopFrom(std::string_view currentDesktop) {
    const std::string names = ":" + lower(currentDesktop) + ":";
    if (names.find(":kde:") != std::string::npos) return Desktop::kde;
    if (names.find(":gnome:") != std::string::npos || names.find(":gnome-classic:") != std::string::npos ||
        names.find(":unity:") != std::string::npos || names.find(":budgie:") != std::string::npos)
        return Desktop::gnome;
    return Desktop::other;
}

std::optional<std::string> DesktopTools::find(std::string_view program) const {
    if (auto it = m_found.find(program); it != m_found.end()) return it->second;
    std::optional<std::string> found;
    if (!program.empty() && program.find('/') == std::string_view::npos) {
        for (const auto& folder : m_searchPath) {
            const auto candidate = folder / program;
            std::error_code error;
            if (std::filesystem::is_regular_file(candidate, error) &&
                ::access(candidate.c_str(), X_OK) == 0) {
                found = candidate.string();
                break;
            }
        }
    }
    m_found.emplace(std::string(program), found);
    return found;
}

}  // namespace vantrelle
