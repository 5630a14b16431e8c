#include "monitors/ProcProcessControl.h"

#include <csignal>

#include "monitors/ProcFiles.h"

namespace vantrelle {

std::optional<ProcessDetails> ProcProcessControl::details(pid_t pid) {
    const std::filesystem::path base = m_root / std::to_string(pid);
    std::error_code error;
    if (!std::filesystem::exists(base, error)) return std::nullopt;
    ProcessDetails details;
    details.arguments = procfs::readSmall(base / "cmdline");
    while (!details.arguments.empty() && details.arguments.back() == '\0') details.arguments.pop_back();
    for (char& c : details.arguments) {
        if (c == '\0') c = ' ';
    }
    details.executable = procfs::linkTarget(base / "exe");
    details.workingDirectory = procfs::linkTarget(base / "cwd");
    return details;
}

bool ProcProcessControl::send(pid_t pid, ProcessSignal signal) {
    if (pid <= 0) return false;  // never a process group
    return ::kill(pid, signal == ProcessSignal::kill ? SIGKILL : SIGTERM) == 0;
}

}  // namespace vantrelle
