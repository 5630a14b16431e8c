// Whole log homes that grow: the input is a script that appends to five logs of the three agents (two
// Claude Code sessions, a Codex rollout, a Gemini chat and a whole-file Gemini log) in pieces of any
// size, with scans in between. Lines come from templates filled with the input's bytes, or, when the
// first byte is odd, also as raw bytes. Files only grow, so after every scan:
//   - replies counted (the sessions' messages), Codex tokens and the skipped-input counts never go down;
//   - with template lines only, whose dates all lie in the window, the Claude Code tokens never go
//     down either (a reply only rises to its final size);
//   - a second scan of the unchanged home gives the same events;
// and nothing may end the process.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "agents/ClaudeCodeLog.h"
#include "agents/IsoDate.h"
#include "platform/VirtualScheduler.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kFiles[] = {".claude/projects/p/older.jsonl", ".claude/projects/q/resumed.jsonl",
                                  ".codex/sessions/2030/01/rollout-1.jsonl", ".gemini/tmp/h/chats/chat.jsonl",
                                  ".gemini/tmp/h/chats/whole.json"};
constexpr std::size_t kFileCount = std::size(kFiles);

// One home per process, its folders made once; each input starts from empty files. PERF NOTE:
// emptying five files costs far less than removing and making the tree again for every input.
const fs::path& home() {
    static const fs::path path = [] {
        auto p = fs::temp_directory_path() / ("vantrelle-fuzz-homes-" + std::to_string(::getpid()));
        fs::remove_all(p);
        for (const char* file : kFiles) fs::create_directories((p / file).parent_path());
        return p;
    }();
    return path;
}

class Script {
public:
    Script(const std::uint8_t* data, std::size_t size) : m_data(data), m_size(size) {}
    [[nodiscard]] bool more() const { return m_at < m_size; }
    std::uint8_t byte() { return m_at < m_size ? m_data[m_at++] : 0; }
    std::int64_t number() {  // small and large counts, now and then negative or huge
        const std::uint8_t kind = byte();
        if (kind == 255) return INT64_MAX;
        if (kind == 254) return INT64_MIN;
        if (kind >= 250) return -static_cast<std::int64_t>(byte());
        return static_cast<std::int64_t>(kind) * 97 + byte();
    }
    std::string raw() {
        // The wanted length is read first: as an argument beside `m_size - m_at` its read could come last.
        const std::size_t wanted = byte();
        const std::size_t length = std::min(wanted, m_size - m_at);
        std::string text(reinterpret_cast<const char*>(m_data + m_at), length);
        m_at += length;
        return text;
    }

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_at = 0;
};

std::string claudeLine(Script& s, vantrelle::Date now) {
    const std::string date = vantrelle::formatIsoDate(now - 3600.0 * (s.byte() % 48));
    const std::uint8_t shape = s.byte();
    if (shape % 5 == 0)
        return R"({"type":"user","timestamp":")" + date +
               R"(","message":{"content":"go"}})"
               "\n";
    std::string line = R"({"type":"assistant","timestamp":")" + date + "\"";
    if (shape % 3 != 0) line += R"(,"requestId":"r)" + std::to_string(s.byte() % 4) + "\"";
    line += R"(,"message":{"id":"m)" + std::to_string(s.byte() % 8) +
            R"(","model":"claude-sonnet-4-5","usage":{)";
    line += R"("input_tokens":)" + std::to_string(s.number()) + R"(,"output_tokens":)" +
            std::to_string(s.number());
    line += R"(,"cache_read_input_tokens":)" + std::to_string(s.number()) + "}}}\n";
    return line;
}

std::string codexLine(Script& s, vantrelle::Date now) {
    return R"({"timestamp":")" + vantrelle::formatIsoDate(now - 60.0 * s.byte()) +
           R"(","type":"event_msg","payload":{"type":"token_count","info":{"total_token_usage":{"input_tokens":)" +
           std::to_string(s.number()) + R"(,"output_tokens":)" + std::to_string(s.number()) +
           R"(,"cached_input_tokens":)" + std::to_string(s.number()) + "}}}}\n";
}

std::string geminiMessage(Script& s, vantrelle::Date now) {
    return R"({"type":"gemini","id":"g)" + std::to_string(s.byte() % 6) + R"(","timestamp":")" +
           vantrelle::formatIsoDate(now - 60.0 * s.byte()) + R"(","tokens":{"input":)" +
           std::to_string(s.number()) + R"(,"output":)" + std::to_string(s.number()) + "}}";
}

std::string templateLine(std::size_t file, Script& s, vantrelle::Date now, bool& wholeWritten) {
    switch (file) {
        case 0:
        case 1:
            return claudeLine(s, now);
        case 2:
            return codexLine(s, now);
        case 3:
            if (s.byte() % 4 == 0) return R"({"$set":{"messages":[)" + geminiMessage(s, now) + "]}}\n";
            return geminiMessage(s, now) + "\n";
        default:
            if (wholeWritten) return " ";  // stays the same document
            wholeWritten = true;
            return R"({"messages":[)" + geminiMessage(s, now) + "," + geminiMessage(s, now) + "]}";
    }
}

struct Totals {
    std::int64_t messages = 0, codexTokens = 0, claudeTokens = 0;
    vantrelle::LogProblems problems;
};

Totals totalsOf(const vantrelle::AILogSnapshot& snapshot) {
    Totals totals;
    for (const auto& [id, meta] : snapshot.sessions()) totals.messages += meta.messages;
    for (const auto& event : snapshot.events()) {
        auto& sum = event.tool == vantrelle::AgentTool::codex ? totals.codexTokens : totals.claudeTokens;
        if (event.tool != vantrelle::AgentTool::gemini)
            sum = vantrelle::saturatingAdd(sum, event.totalTokens());
    }
    totals.problems = snapshot.problems;
    return totals;
}

void check(bool holds) {
    if (!holds) __builtin_trap();
}

void scanAndCheck(vantrelle::ClaudeCodeLog& log, Totals& last, bool templatesOnly) {
    const auto snapshot = log.scan();
    const Totals now = totalsOf(snapshot);
    check(now.messages >= last.messages);
    check(now.codexTokens >= last.codexTokens);
    check(!templatesOnly || now.claudeTokens >= last.claudeTokens);
    check(now.problems.brokenLines >= last.problems.brokenLines);
    check(now.problems.longLines >= last.problems.longLines);
    check(now.problems.futureLines >= last.problems.futureLines);
    check(log.fileCount() <= kFileCount);
    const auto again = log.scan();
    check(again.events().size() == snapshot.events().size());
    check(totalsOf(again).claudeTokens == now.claudeTokens && totalsOf(again).messages == now.messages);
    last = now;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    Script script(data, size);
    const bool raw = (script.byte() & 1) != 0;
    for (const char* file : kFiles) std::ofstream(home() / file, std::ios::binary | std::ios::trunc);

    vantrelle::MapEnvironment environment;
    vantrelle::VirtualScheduler clock(vantrelle::SystemClock::shared().now());
    vantrelle::ClaudeCodeLog log(environment, home(), clock);
    std::string pending[kFileCount];  // written in pieces: what is not in the file yet
    bool wholeWritten = false;
    Totals last;
    const auto writePiece = [&](std::size_t file, std::size_t length) {
        length = std::min(length, pending[file].size());
        std::ofstream(home() / kFiles[file], std::ios::binary | std::ios::app)
            << pending[file].substr(0, length);
        pending[file].erase(0, length);
    };
    for (int step = 0; script.more() && step < 300; ++step) {
        const std::uint8_t op = script.byte();
        const std::size_t file = op / 8 % kFileCount;
        switch (op % 8) {
            case 0:
                scanAndCheck(log, last, !raw);
                break;
            case 1:
            case 2:
            case 3:
                pending[file] += templateLine(file, script, clock.now(), wholeWritten);
                break;
            case 4:
                if (raw) pending[file] += script.raw();
                break;
            default:
                writePiece(file, script.byte() % 4 == 0 ? SIZE_MAX : script.byte());
                break;
        }
    }
    for (std::size_t file = 0; file < kFileCount; ++file) writePiece(file, SIZE_MAX);
    scanAndCheck(log, last, !raw);
    return 0;
}
