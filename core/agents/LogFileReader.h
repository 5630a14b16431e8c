#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "agents/AISessionMeta.h"
#include "agents/AgentTool.h"
#include "agents/LogFileState.h"
#include "agents/LogLineParser.h"
#include "agents/LogLineSink.h"

namespace vantrelle {

// One file's work in a scan, found by the listing's attribute read. Its results go to its own sink,
// so the reads of one scan can run on several threads.
struct LogRead {
    std::filesystem::path url;
    AgentTool tool = AgentTool::claudeCode;
    LogFileState* state = nullptr;
    AISessionMeta* meta = nullptr;
    std::uint64_t size = 0;
    Date modified;
    bool wholeJson = false;  // a Gemini ".json" chat, parsed whole at each change
    LineSink sink;
};

// Reads what was appended to a log since the last read, line by line, or a whole-file log at once.
// One per thread: it keeps a parser and a read buffer across files and scans.
//
// The reading rule: every finished line is read exactly once, whatever pieces it arrived in. The offset
// moves past a line only when its line feed is there, or when the file's last bytes already form a
// whole JSON object; an unfinished tail is read again, whole, next time. A line longer than maxLine is
// skipped to its line feed, whether it came whole or in pieces, without being held in memory.
class LogFileReader {
public:
    static constexpr std::size_t maxLine = 1'000'000;
    static constexpr std::uint64_t maxDocument = 256u << 20;  // a larger whole-file log is not parsed

    LogFileReader();
    ~LogFileReader();
    LogFileReader(const LogFileReader&) = delete;
    LogFileReader& operator=(const LogFileReader&) = delete;

    // `now` dates lines that carry no date and bounds the dates taken.
    void read(LogRead& job, Date now);

private:
    class Buffer;

    void readLines(LogRead& job, Date now);
    void readWholeJson(LogRead& job, Date now);
    // Applies the finished lines of [data + from, data + filled); returns where the unfinished tail starts.
    std::size_t parseLines(const char* data, std::size_t from, std::size_t filled, LogRead& job,
                           LineContext& context);

    LogLineParser m_parser;
    std::unique_ptr<Buffer> m_buffer;
};

}  // namespace vantrelle
