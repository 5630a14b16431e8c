#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "agents/AILogSnapshot.h"
#include "agents/AgentTool.h"
#include "agents/LogLocator.h"
#include "platform/Clock.h"
#include "platform/Environment.h"

namespace vantrelle {

// Turns the session logs of Claude Code, Codex and Gemini CLI under the home folder into usage events
// and one record per session. A pull scanner: each scan() reads only what was appended to each log
// since the last one. Nothing is persisted; a new instance rebuilds the last 30 days from the logs.
// Not thread-safe: the owner runs every scan on one serial queue.
class ClaudeCodeLog {
public:
    static constexpr double window = 2'592'000;  // 30 days

    // The logs are looked for under VANTRELLE_AI_HOME if set, else under `userHome`.
    ClaudeCodeLog(const Environment& environment, std::filesystem::path userHome, const Clock& clock);
    ~ClaudeCodeLog();
    ClaudeCodeLog(const ClaudeCodeLog&) = delete;
    ClaudeCodeLog& operator=(const ClaudeCodeLog&) = delete;

    // Blocking file work. Unreadable files, lines and folders are skipped silently.
    [[nodiscard]] AILogSnapshot scan();

    [[nodiscard]] const std::filesystem::path& home() const { return m_home; }
    // Log files the scanner currently follows.
    [[nodiscard]] std::size_t fileCount() const { return m_files.size(); }

    // The folder the logs are looked for under, as the constructor resolves it.
    [[nodiscard]] static std::filesystem::path resolveHome(const Environment& environment,
                                                           const std::filesystem::path& userHome);

    struct CodexTotals {
        std::int64_t input = 0;
        std::int64_t output = 0;
        std::int64_t cached = 0;
    };

    // What the scanner keeps per log file, under its full path.
    struct FileState {
        std::uint64_t offset = 0;              // where the next read starts
        std::string carry;                     // the unfinished line behind the last line feed
        std::unordered_set<std::string> seen;  // dedupe keys of Claude Code replies counted here
        std::optional<CodexTotals> codexLastTotal;
        std::map<std::string, AIUsageEvent, std::less<>> geminiEvents;  // by message id
        std::optional<Date> jsonModified;  // of a whole-file Gemini log at its last parse
        std::string sessionId;
        std::uint64_t scanGeneration = 0;  // the last scan that listed the file
    };

private:
    // One file's work of a scan, found by a cheap attribute read; the reading itself may run on
    // another thread, since no two jobs of a scan share a session.
    struct Job {
        std::filesystem::path url;
        std::string path;
        AgentTool tool;
        FileState* state;
        AISessionMeta* meta;
        std::uint64_t size;
        Date modified;
        bool wholeJson;
        std::vector<AIUsageEvent> events;
    };
    // A line parser with its read buffer; one per thread.
    struct Reader;

    void readAll(const std::vector<LogCandidate>& candidates);
    std::optional<Job> prepare(const LogCandidate& candidate);
    void execute(Job& job, Reader& reader, std::vector<AIUsageEvent>& sink);
    void readLines(Job& job, Reader& reader);
    void readWholeJson(Job& job, Reader& reader);
    // Parses the finished lines of [data, data + filled); returns where the unfinished tail starts.
    static std::size_t parseLines(const char* data, std::size_t filled, std::size_t readable, Job& job,
                                  Reader& reader);
    static void finishRead(FileState& state, std::uint64_t size, std::size_t chunkLength);
    void forget(const std::string& path);

    std::filesystem::path m_home;
    const Clock& m_clock;

    std::unordered_map<std::string, FileState> m_files;
    std::vector<AIUsageEvent> m_events;  // Claude Code and Codex events inside the window
    std::map<std::string, AISessionMeta, std::less<>> m_sessions;

    std::vector<std::unique_ptr<Reader>> m_readers;  // kept for their grown buffers
    std::uint64_t m_generation = 0;
    bool m_changed = true;

    // The last snapshot's lists, handed out again while nothing changes.
    std::shared_ptr<const AILogSnapshot::Events> m_publishedEvents;
    std::shared_ptr<const AILogSnapshot::Sessions> m_publishedSessions;
    std::optional<Date> m_oldestPublishedGemini;
};

}  // namespace vantrelle
