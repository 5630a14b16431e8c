#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "agents/ClaudeCodeLog.h"

namespace vantrelle {

// One build of the line readers for one instruction set; LogLineParser picks the best the processor
// runs. A line's changes are applied only once the whole line has parsed, so a broken line changes
// nothing.
struct LogLineKernel {
    virtual ~LogLineKernel() = default;

    // The bytes [data, data + length) followed by readable bytes up to data + capacity, at least
    // kLogLinePadding of them.
    virtual void line(const char* data, std::size_t length, std::size_t capacity, AgentTool tool,
                      ClaudeCodeLog::FileState& state, AISessionMeta& meta) = 0;
    virtual bool geminiDocument(const char* data, std::size_t length, std::size_t capacity,
                                ClaudeCodeLog::FileState& state, AISessionMeta& meta) = 0;

    // Where the events of the following lines go.
    virtual void setSink(std::vector<AIUsageEvent>* sink) = 0;
};

inline constexpr std::size_t kLogLinePadding = 64;

[[nodiscard]] std::unique_ptr<LogLineKernel> makeHaswellLogLineKernel(const Clock& clock);
[[nodiscard]] std::unique_ptr<LogLineKernel> makeFallbackLogLineKernel(const Clock& clock);

}  // namespace vantrelle
