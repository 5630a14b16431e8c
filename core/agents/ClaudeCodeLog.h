#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "agents/AILogSnapshot.h"
#include "agents/AgentTool.h"
#include "agents/ClaudeReplies.h"
#include "agents/LogFileState.h"
#include "agents/LogLocator.h"
#include "agents/LogProblems.h"
#include "platform/Clock.h"
#include "platform/Environment.h"

namespace vantrelle {

class LogFileReader;
struct LogRead;

// Turns the session logs of Claude Code, Codex and Gemini CLI under the home folder into usage events
// and one record per session. A pull scanner: each scan() reads only what was appended to each log
// since the last one. Nothing is persisted; a new instance rebuilds the last 30 days from the logs.
// Not thread-safe: the owner runs every scan on one serial queue.
//
// A Claude Code reply is counted once across all logs (see ClaudeReplies): it belongs to the session
// whose log starts earliest (the earliest date in it; equal starts: the path that sorts first) and
// counts as one message and one model use there only.
class ClaudeCodeLog {
public:
    static constexpr double window = 2'592'000;  // 30 days

    using FileState = LogFileState;

    // The logs are looked for under VANTRELLE_AI_HOME if set, else under `userHome`; events older than
    // `history` seconds, and logs untouched as long, are left out.
    ClaudeCodeLog(const Environment& environment, const std::filesystem::path& userHome, const Clock& clock,
                  double history = window);
    ~ClaudeCodeLog();
    ClaudeCodeLog(const ClaudeCodeLog&) = delete;
    ClaudeCodeLog& operator=(const ClaudeCodeLog&) = delete;

    // Blocking file work. Bad input is skipped, counted in problems() and written once per file and
    // kind to the debug log; it never stops the scan.
    [[nodiscard]] AILogSnapshot scan();

    [[nodiscard]] const std::filesystem::path& home() const { return m_home; }
    // Log files the scanner currently follows.
    [[nodiscard]] std::size_t fileCount() const { return m_files.size(); }
    [[nodiscard]] const LogProblems& problems() const { return m_problems; }

    // The folder the logs are looked for under, as the constructor resolves it.
    [[nodiscard]] static std::filesystem::path resolveHome(const Environment& environment,
                                                           const std::filesystem::path& userHome);

private:
    void readAll(const std::vector<LogCandidate>& candidates, Date now);
    void readBatch(std::span<LogRead> jobs, std::uint64_t bytes, Date now);
    std::optional<LogRead> prepare(const LogCandidate& candidate);
    void merge(LogRead& job);
    void forget(const std::string& path);
    void publish(Date cutoff);
    void addClaudeEvents(Date cutoff, AILogSnapshot::Events& events, AILogSnapshot::Sessions& sessions) const;

    std::filesystem::path m_home;
    const Clock& m_clock;
    double m_history;

    std::unordered_map<std::string, FileState> m_files;
    std::unordered_map<std::uint32_t, const std::string*> m_pathOf;  // file id -> key in m_files
    std::uint32_t m_nextFileId = 1;
    std::vector<AIUsageEvent> m_events;  // Codex events inside the window
    ClaudeReplies m_replies;
    std::map<std::string, AISessionMeta, std::less<>> m_sessions;  // Claude Code counts not yet added
    LogProblems m_problems;

    std::vector<std::unique_ptr<LogFileReader>> m_readers;  // kept for their grown buffers
    std::uint64_t m_generation = 0;
    bool m_changed = true;

    // The last snapshot's lists, handed out again while nothing changes.
    std::shared_ptr<const AILogSnapshot::Events> m_publishedEvents;
    std::shared_ptr<const AILogSnapshot::Sessions> m_publishedSessions;
    std::optional<Date> m_oldestPublished;  // of the Claude Code and Gemini events handed out
};

}  // namespace vantrelle
