#pragma once

#include <string>
#include <vector>

namespace vantrelle {

struct ProcessResult {
    bool launched = false;  // false when the program could not be started at all
    bool timedOut = false;  // killed after the timeout
    int exitCode = -1;
    std::string standardOutput;
    std::string standardError;

    [[nodiscard]] bool succeeded() const { return launched && !timedOut && exitCode == 0; }
};

// Runs a program to its end. Blocking: call it from a serial queue, never from the main thread.
class ProcessRunner {
public:
    virtual ~ProcessRunner() = default;
    [[nodiscard]] virtual ProcessResult run(const std::string& program,
                                            const std::vector<std::string>& arguments,
                                            double timeoutSeconds = 10.0) = 0;
};

}  // namespace vantrelle
