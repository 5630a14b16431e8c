#pragma once

#include "platform/ProcessLauncher.h"

namespace vantrelle {

// Children run in a process group of their own, so ending one ends what it started (systemd-inhibit's
// command), and they die with this process even when it is killed.
class QtProcessLauncher final : public ProcessLauncher {
public:
    [[nodiscard]] std::string startDetached(const std::string& program,
                                            const std::vector<std::string>& arguments) override;
    [[nodiscard]] Started startChild(const std::string& program, const std::vector<std::string>& arguments,
                                     std::function<void()> onExit) override;
};

}  // namespace vantrelle
