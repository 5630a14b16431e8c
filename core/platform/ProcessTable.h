#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace vantrelle {

struct ProcessInfo {
    pid_t pid = 0;
    std::string executable;  // full path of the program file; argv[0] where it can't be read
    std::string arguments;   // the full argument line, arguments joined by blanks
    bool operator==(const ProcessInfo&) const = default;
};

// The running processes. Blocking: call it from a serial queue.
class ProcessTable {
public:
    virtual ~ProcessTable() = default;
    // Every process this user may see, or nothing with `error` set when the listing failed.
    [[nodiscard]] virtual std::optional<std::vector<ProcessInfo>> list(std::string& error) = 0;
};

}  // namespace vantrelle
