#pragma once

#include <filesystem>

#include "platform/ProcessControl.h"

namespace vantrelle {

// Processes through /proc/<pid>/{cmdline,exe,cwd} and kill(2).
class ProcProcessControl final : public ProcessControl {
public:
    explicit ProcProcessControl(std::filesystem::path root = "/proc") : m_root(std::move(root)) {}
    [[nodiscard]] std::optional<ProcessDetails> details(pid_t pid) override;
    bool send(pid_t pid, ProcessSignal signal) override;

private:
    std::filesystem::path m_root;
};

}  // namespace vantrelle
