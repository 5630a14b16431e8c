#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>

namespace vantrelle {

// A local development server: a process of the user's listening on a TCP port. Identified by its port.
struct DevServer {
    std::int64_t port = 0;
    pid_t pid = 0;
    std::string process;  // command name
    std::string cwd;      // working folder, empty when it couldn't be read
    std::optional<std::string> kind;

    [[nodiscard]] std::string url() const { return "http://localhost:" + std::to_string(port) + "/"; }
    // The last component of the working folder.
    [[nodiscard]] std::string project() const;
    [[nodiscard]] bool isDocker() const { return kind == "Docker"; }
    bool operator==(const DevServer&) const = default;
};

}  // namespace vantrelle
