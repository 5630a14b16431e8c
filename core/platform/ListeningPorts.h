#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantrelle {

// One TCP socket in the listening state and the process that holds it.
struct ListeningSocket {
    pid_t pid = 0;
    std::string command;  // the short process name, as the kernel keeps it
    std::int64_t port = 0;
    bool operator==(const ListeningSocket&) const = default;
};

// The listening TCP sockets this user may see. Blocking: call it from a serial queue.
class ListeningPorts {
public:
    virtual ~ListeningPorts() = default;
    // Every listening socket, or nothing with `error` set when the listing failed.
    [[nodiscard]] virtual std::optional<std::vector<ListeningSocket>> list(std::string& error) = 0;
};

}  // namespace vantrelle
