#pragma once

#include <cstddef>
#include <memory>

#include "agents/ClaudeCodeLog.h"

namespace vantrelle {

struct LogLineKernel;

// The JSON side of ClaudeCodeLog: turns one log line, or one whole-file Gemini log, into changes of a
// file's state, its session record and the event list, with the fastest reader the processor runs.
struct LogLineParser {
    explicit LogLineParser(const Clock& clock);
    // Where the events of the following lines go.
    void setSink(std::vector<AIUsageEvent>* sink);
    ~LogLineParser();
    LogLineParser(const LogLineParser&) = delete;
    LogLineParser& operator=(const LogLineParser&) = delete;

    // The bytes [data, data + length) followed by readable bytes up to data + capacity, at least
    // padding() of them.
    void line(const char* data, std::size_t length, std::size_t capacity, AgentTool tool,
              ClaudeCodeLog::FileState& state, AISessionMeta& meta);
    // Parses a whole-file Gemini log into `state` and `meta`; false (and nothing changed) if it isn't
    // a JSON object.
    bool geminiDocument(const char* data, std::size_t length, std::size_t capacity,
                        ClaudeCodeLog::FileState& state, AISessionMeta& meta);

    [[nodiscard]] static std::size_t padding();

private:
    std::unique_ptr<LogLineKernel> m_kernel;
};

}  // namespace vantrelle
