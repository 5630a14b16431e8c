#include "monitors/DevServerRules.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace vantrelle {
namespace {

std::string lowered(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

template <std::size_t N>
bool containsAny(std::string_view text, const std::array<std::string_view, N>& parts) {
    return std::any_of(parts.begin(), parts.end(),
                       [&](std::string_view part) { return contains(text, part); });
}

template <std::size_t N>
bool startsWithAny(std::string_view text, const std::array<std::string_view, N>& prefixes) {
    return std::any_of(prefixes.begin(), prefixes.end(),
                       [&](std::string_view prefix) { return text.starts_with(prefix); });
}

// Order matters: the first row whose text occurs wins.
constexpr std::array<std::pair<std::string_view, std::string_view>, 37> kKinds{{
    {"docker", "Docker"},       {"orbstack", "Docker"},
    {"next-server", "Next.js"}, {"next dev", "Next.js"},
    {"next start", "Next.js"},  {"/next/dist", "Next.js"},
    {"vite", "Vite"},           {"astro", "Astro"},
    {"nuxt", "Nuxt"},           {"remix", "Remix"},
    {"storybook", "Storybook"}, {"svelte-kit", "SvelteKit"},
    {"gatsby", "Gatsby"},       {"webpack", "webpack"},
    {"expo", "Expo"},           {"wrangler", "Wrangler"},
    {"manage.py", "Django"},    {"uvicorn", "Uvicorn"},
    {"gunicorn", "Gunicorn"},   {"flask", "Flask"},
    {"http.server", "Python"},  {"rails", "Rails"},
    {"puma", "Rails"},          {"artisan", "Laravel"},
    {"php -s", "PHP"},          {"hugo", "Hugo"},
    {"jekyll", "Jekyll"},       {"postgres", "Postgres"},
    {"redis-server", "Redis"},  {"mysqld", "MySQL"},
    {"mongod", "MongoDB"},      {"bun", "Bun"},
    {"deno", "Deno"},           {"node", "Node"},
    {"python", "Python"},       {"ruby", "Ruby"},
    {"java", "Java"},
}};

constexpr std::array<std::string_view, 4> kToolServerMarks{"-mcp", "mcp-server", "/mcp",
                                                           "modelcontextprotocol"};
constexpr std::array<std::string_view, 6> kRefusedCommands{"claude", "codex", "gemini",
                                                           "cursor", "code",  "vantrelle"};
// Where the system's own daemons live on Linux.
constexpr std::array<std::string_view, 7> kSystemPrefixes{
    "/usr/libexec/", "/usr/sbin/",      "/sbin/",        "/usr/lib/systemd/",
    "/lib/systemd/", "/usr/lib/snapd/", "/usr/lib/cups/"};
// Where packaged desktop applications live: bundled apps in /opt, snaps, Flatpaks, mounted AppImages.
constexpr std::array<std::string_view, 3> kAppPrefixes{"/opt/", "/snap/", "/tmp/.mount_"};
constexpr std::array<std::string_view, 2> kAppParts{"/flatpak/app/", "/flatpak/runtime/"};
constexpr std::array<std::string_view, 8> kRuntimes{"python", "node", "ruby", "java",
                                                    "php",    "bun",  "deno", "postgres"};
constexpr std::array<std::string_view, 6> kBareRuntimeKinds{"Node", "Bun", "Deno", "Python", "Ruby", "Java"};

bool isDesktopApplication(std::string_view path, std::string_view home) {
    if (startsWithAny(path, kAppPrefixes) || containsAny(path, kAppParts)) return true;
    if (home.empty()) return false;
    const std::string homeApps = lowered(home) + "/applications/";
    return path.starts_with(homeApps);
}

}  // namespace

std::optional<std::string> detectDevServerKind(std::string_view command, std::string_view args) {
    const std::string line = lowered(std::string(command) + " " + std::string(args));
    for (const auto& [text, kind] : kKinds) {
        if (contains(line, text)) return std::string(kind);
    }
    return std::nullopt;
}

bool isDevProcess(std::string_view command, std::string_view args, std::string_view path,
                  const std::optional<std::string>& kind, std::int64_t port, std::string_view home) {
    if (kind == "Docker") return true;
    if (containsAny(lowered(args), kToolServerMarks)) return false;
    const std::string name = lowered(command);
    if (std::find(kRefusedCommands.begin(), kRefusedCommands.end(), name) != kRefusedCommands.end())
        return false;
    const std::string lowPath = lowered(path);
    if (startsWithAny(lowPath, kSystemPrefixes)) return false;
    const bool isRuntime = startsWithAny(name, kRuntimes);
    if (!isRuntime && isDesktopApplication(lowPath, home)) return false;
    if (port < kFirstEphemeralPort) return true;
    if (!kind) return false;
    return std::find(kBareRuntimeKinds.begin(), kBareRuntimeKinds.end(), *kind) == kBareRuntimeKinds.end();
}

}  // namespace vantrelle
