#include "agents/LogLineParser.h"

#include "agents/LogLineKernel.h"

namespace vantrelle {

namespace {

std::unique_ptr<LogLineKernel> bestKernel(const Clock& clock) {
#if defined(VANTRELLE_HASWELL_KERNEL)
    // PERF NOTE: the AVX2 build finds a line's structure several times faster than the portable one.
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") && __builtin_cpu_supports("pclmul")) {
        return makeHaswellLogLineKernel(clock);
    }
#endif
    return makeFallbackLogLineKernel(clock);
}

}  // namespace

LogLineParser::LogLineParser(const Clock& clock) : m_kernel(bestKernel(clock)) {}
LogLineParser::~LogLineParser() = default;

void LogLineParser::setSink(std::vector<AIUsageEvent>* sink) {
    m_kernel->setSink(sink);
}

std::size_t LogLineParser::padding() {
    return kLogLinePadding;
}

void LogLineParser::line(const char* data, std::size_t length, std::size_t capacity, AgentTool tool,
                         ClaudeCodeLog::FileState& state, AISessionMeta& meta) {
    m_kernel->line(data, length, capacity, tool, state, meta);
}

bool LogLineParser::geminiDocument(const char* data, std::size_t length, std::size_t capacity,
                                   ClaudeCodeLog::FileState& state, AISessionMeta& meta) {
    return m_kernel->geminiDocument(data, length, capacity, state, meta);
}

}  // namespace vantrelle
