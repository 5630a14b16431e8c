#pragma once

#include <filesystem>

#include "platform/ProcessTable.h"

namespace vantrelle {

// The process list from /proc: the program file from /proc/<pid>/exe, the argument line from
// /proc/<pid>/cmdline. Processes that vanish or hide their details mid-listing are skipped or
// described by what could be read.
class ProcProcessTable final : public ProcessTable {
public:
    explicit ProcProcessTable(std::filesystem::path root = "/proc") : m_root(std::move(root)) {}
    [[nodiscard]] std::optional<std::vector<ProcessInfo>> list(std::string& error) override;

private:
    std::filesystem::path m_root;
};

}  // namespace vantrelle
