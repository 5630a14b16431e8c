#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "agents/AgentTool.h"
#include "platform/Date.h"

namespace vantrelle {

struct LogCandidate {
    std::filesystem::path path;
    AgentTool tool;
    std::uint64_t size = 0;  // as the listing read them, so a scan reads each file's attributes once
    Date modified;
};

// The agents' log files under `home` modified at or after `cutoff`: Claude Code projects, then Codex
// sessions, then Gemini chats. Hidden entries are skipped and unreadable folders yield nothing.
// Entries of one folder come in name order.
[[nodiscard]] std::vector<LogCandidate> candidateLogFiles(const std::filesystem::path& home, Date cutoff);

// The project a Gemini chat log belongs to: the text of ".project_root" in the folder above "chats",
// or that folder's name.
[[nodiscard]] std::string geminiProjectRoot(const std::filesystem::path& file);

}  // namespace vantrelle
