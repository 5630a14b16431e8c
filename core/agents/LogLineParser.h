#pragma once

#include <cstddef>
#include <memory>

#include "agents/AgentTool.h"
#include "agents/LogLineApply.h"

namespace vantrelle {

// How a line fared: read to its end and applied, a whole JSON value that isn't an object, or broken
// (not JSON, cut short, or with bytes behind the value).
enum class LineRead { applied, notAnObject, broken };

// The JSON side of ClaudeCodeLog: reads one log line, or one whole-file Gemini log, into a line record
// and applies it. One portable build: simdjson picks the SIMD kernel of its first stage, the part that
// finds a line's structure, for the processor at run time.
class LogLineParser {
public:
    LogLineParser();
    ~LogLineParser();
    LogLineParser(const LogLineParser&) = delete;
    LogLineParser& operator=(const LogLineParser&) = delete;

    // The bytes [data, data + length) followed by readable bytes up to data + capacity, at least
    // padding() of them.
    LineRead line(const char* data, std::size_t length, std::size_t capacity, AgentTool tool,
                  LineContext& context);
    // A whole-file Gemini log; false, and nothing applied, if it isn't one whole JSON object.
    bool geminiDocument(const char* data, std::size_t length, std::size_t capacity, LineContext& context);

    [[nodiscard]] static constexpr std::size_t padding() { return 64; }

    struct Readers;

private:
    std::unique_ptr<Readers> m_readers;
};

}  // namespace vantrelle
