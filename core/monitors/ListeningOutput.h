#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/ListeningPorts.h"

namespace vantrelle {

// Reads the field output of `lsof -nP -iTCP -sTCP:LISTEN -Fpcn`: "p<pid>", "c<command>" and
// "n<address>:<port>" lines, other fields ignored. A name line with a port adds one socket with the
// pid and command last seen; a name without ":" or with a port that isn't a decimal number adds none.
[[nodiscard]] std::vector<ListeningSocket> parseLsofListing(std::string_view text);

// One listening socket of the kernel's table, before its process is known.
struct KernelListener {
    std::int64_t port = 0;
    std::uint64_t inode = 0;
    bool operator==(const KernelListener&) const = default;
};

// Reads /proc/net/tcp or /proc/net/tcp6: the rows in the listening state (0A) with their local port
// and socket inode. The header and malformed rows are skipped.
[[nodiscard]] std::vector<KernelListener> parseProcNetTcp(std::string_view text);

}  // namespace vantrelle
