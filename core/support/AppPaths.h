#pragma once

#include <filesystem>

#include "platform/Environment.h"

namespace vantrelle {

// Where the program keeps its files, after the XDG base directories.
struct AppPaths {
    std::filesystem::path home;
    std::filesystem::path dataHome;    // $XDG_DATA_HOME: the counterpart of Application Support
    std::filesystem::path configHome;  // $XDG_CONFIG_HOME
    std::filesystem::path cacheHome;   // $XDG_CACHE_HOME

    [[nodiscard]] std::filesystem::path dataRoot() const { return dataHome / "Vantrelle"; }
    // Where an earlier name of the program kept its data; moved into dataRoot() at launch.
    [[nodiscard]] std::filesystem::path legacyRoot() const { return dataHome / "Kestrand"; }
    [[nodiscard]] std::filesystem::path configRoot() const { return configHome / "Vantrelle"; }
    [[nodiscard]] std::filesystem::path cacheRoot() const { return cacheHome / "Vantrelle"; }
    [[nodiscard]] std::filesystem::path defaultsFile() const { return configRoot() / "defaults.json"; }
    [[nodiscard]] std::filesystem::path autostartEntry() const {
        return configHome / "autostart" / "vantrelle.desktop";
    }

    // Relative or empty XDG variables are ignored, as the XDG rules say.
    [[nodiscard]] static AppPaths fromEnvironment(const Environment& environment);
};

}  // namespace vantrelle
