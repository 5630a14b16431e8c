#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantrelle {

// What runs on a port, from the command and its arguments: the first matching row of an ordered
// table ("next dev" before "node", so a Next.js server isn't taken for bare Node). The path plays no
// part, so a renamed binary is told by its arguments alone.
[[nodiscard]] std::optional<std::string> detectDevServerKind(std::string_view command, std::string_view args);

// Whether a listening process looks like the user's own development server rather than a system
// service, a desktop application or an agent's tool server. `home` is the user's home folder.
[[nodiscard]] bool isDevProcess(std::string_view command, std::string_view args, std::string_view path,
                                const std::optional<std::string>& kind, std::int64_t port,
                                std::string_view home);

// Ports from here up are the kernel's ephemeral range on most systems.
inline constexpr std::int64_t kFirstEphemeralPort = 49152;

}  // namespace vantrelle
