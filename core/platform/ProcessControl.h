#pragma once

#include <sys/types.h>

#include <optional>
#include <string>

namespace vantrelle {

// What the system tells of one running process.
struct ProcessDetails {
    std::string arguments;         // the argument line, arguments joined by blanks
    std::string executable;        // full path of the program file, empty when hidden from us
    std::string workingDirectory;  // empty when hidden from us
};

enum class ProcessSignal { terminate, kill };

// Looks at and signals single processes. Blocking: call it from a serial queue.
class ProcessControl {
public:
    virtual ~ProcessControl() = default;
    // Nothing when the process is gone.
    [[nodiscard]] virtual std::optional<ProcessDetails> details(pid_t pid) = 0;
    // False when the signal could not be delivered (gone, or not ours).
    virtual bool send(pid_t pid, ProcessSignal signal) = 0;
};

}  // namespace vantrelle
