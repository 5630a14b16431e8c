#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantrelle {

// A child process held by its starter; dropping the handle ends it too.
class ChildProcess {
public:
    virtual ~ChildProcess() = default;
    // Asks it to end; its exit handler runs once it has.
    virtual void terminate() = 0;
};

// Starts programs without waiting for them. Main thread.
class ProcessLauncher {
public:
    struct Started {
        std::unique_ptr<ChildProcess> child;  // null when the program could not start
        std::string error;
    };

    virtual ~ProcessLauncher() = default;
    // Launches and forgets. The error text when the program could not be started, else empty.
    [[nodiscard]] virtual std::string startDetached(const std::string& program,
                                                    const std::vector<std::string>& arguments) = 0;
    // Starts a child that lives until terminated; `onExit` runs on the main thread when it ends,
    // whoever ended it. It never runs after the handle is gone, and may drop the handle.
    [[nodiscard]] virtual Started startChild(const std::string& program,
                                             const std::vector<std::string>& arguments,
                                             std::function<void()> onExit) = 0;
};

}  // namespace vantrelle
