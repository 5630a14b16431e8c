#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace vantrelle {

// One request line to the running instance over its local socket, with plain system calls: no Qt
// object, no event loop, so a command that runs many times a minute pays only for the round trip.
// Nothing when no instance listens or none answers within `timeoutMs` in all.
[[nodiscard]] std::optional<std::string> askInstanceSocket(const std::filesystem::path& socket,
                                                           const std::string& line, int timeoutMs);

}  // namespace vantrelle
