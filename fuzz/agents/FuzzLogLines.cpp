// Arbitrary bytes as agent log content. The first byte picks the agent and the file form (Claude Code
// JSONL, Codex JSONL, Gemini JSONL, Gemini whole-file JSON); the rest is written as the log, scanned,
// scanned again unchanged (a Claude Code log is also read as the status line reads a
// transcript), extended by one finished line and scanned once more. Nothing may end the
// process: no input is allowed to stop a scan, so there is no handler that turns a stop into a return.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "agents/ClaudeCodeLog.h"
#include "agents/TranscriptFigures.h"
#include "platform/VirtualScheduler.h"

namespace {

namespace fs = std::filesystem;

const fs::path& home() {
    static const fs::path path = [] {
        auto p = fs::temp_directory_path() / ("vantrelle-fuzz-" + std::to_string(::getpid()));
        fs::remove_all(p);
        return p;
    }();
    return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    static const char* const kFiles[] = {".claude/projects/p/session.jsonl",
                                         ".codex/sessions/2030/rollout.jsonl",
                                         ".gemini/tmp/h/chats/chat.jsonl", ".gemini/tmp/h/chats/chat.json"};
    const fs::path file = home() / kFiles[data[0] % 4];
    fs::remove_all(home());
    fs::create_directories(file.parent_path());
    {
        std::ofstream out(file, std::ios::binary);
        out.write(reinterpret_cast<const char*>(data + 1), static_cast<std::streamsize>(size - 1));
    }
    vantrelle::MapEnvironment environment;
    vantrelle::VirtualScheduler clock(vantrelle::SystemClock::shared().now());
    vantrelle::ClaudeCodeLog log(environment, home(), clock);
    const auto first = log.scan();
    const auto again = log.scan();  // an unchanged file, perhaps with an unfinished tail
    if (again.events().size() != first.events().size()) __builtin_trap();
    // The status line's own reading of a Claude Code transcript takes the same bytes.
    if (data[0] % 4 == 0) {
        const auto figures = vantrelle::readTranscriptFigures(file);
        if (!figures || figures->amount.tokens < 0 || figures->amount.cost < 0) __builtin_trap();
    }
    // A finished line after whatever was there finishes the tail.
    std::ofstream(file, std::ios::binary | std::ios::app) << "\n{\"type\":\"user\"}\n";
    const auto second = log.scan();
    if (log.fileCount() > 1 || second.events().size() > first.events().size() + size) __builtin_trap();
    return 0;
}
