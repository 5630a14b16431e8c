#include "support/AppPaths.h"

#include <pwd.h>
#include <unistd.h>

namespace vantrelle {

namespace {

std::filesystem::path homeFolder(const Environment& environment) {
    if (auto home = environment.get("HOME"); home && !home->empty()) return *home;
    if (const passwd* entry = ::getpwuid(::getuid()); entry && entry->pw_dir) return entry->pw_dir;
    return "/tmp";
}

std::filesystem::path xdg(const Environment& environment, std::string_view variable,
                          const std::filesystem::path& fallback) {
    auto value = environment.get(variable);
    if (value && !value->empty() && std::filesystem::path(*value).is_absolute()) return *value;
    return fallback;
}

}  // namespace

AppPaths AppPaths::fromEnvironment(const Environment& environment) {
    AppPaths paths;
    paths.home = homeFolder(environment);
    paths.dataHome = xdg(environment, "XDG_DATA_HOME", paths.home / ".local" / "share");
    paths.configHome = xdg(environment, "XDG_CONFIG_HOME", paths.home / ".config");
    paths.cacheHome = xdg(environment, "XDG_CACHE_HOME", paths.home / ".cache");
    return paths;
}

}  // namespace vantrelle
