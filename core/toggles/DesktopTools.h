#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Environment.h"

namespace vantrelle {

// What this desktop offers the quick toggles: the programs on its PATH and which desktop it is.
class DesktopTools {
public:
    enum class Desktop { other, gnome, kde };

    DesktopTools(std::vector<std::filesystem::path> searchPath, Desktop desktop);
    // PATH and XDG_CURRENT_DESKTOP; an empty or missing PATH finds nothing.
    [[nodiscard]] static DesktopTools fromEnvironment(const Environment& environment);
    // "GNOME", "ubuntu:GNOME", "KDE" ... as XDG_CURRENT_DESKTOP lists them, colon-separated.
    [[nodiscard]] static Desktop desktopFrom(std::string_view currentDesktop);

    // The full path of an executable file named `program` in the first PATH folder that has one.
    [[nodiscard]] std::optional<std::string> find(std::string_view program) const;
    [[nodiscard]] bool has(std::string_view program) const { return find(program).has_value(); }
    [[nodiscard]] Desktop desktop() const { return m_desktop; }

private:
    std::vector<std::filesystem::path> m_searchPath;
    Desktop m_desktop;
    mutable std::map<std::string, std::optional<std::string>, std::less<>> m_found;
};

}  // namespace vantrelle
