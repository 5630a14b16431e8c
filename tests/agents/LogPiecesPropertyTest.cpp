// The reading rule as a property: logs that arrive in random pieces, with line feeds anywhere and
// scans between the pieces (some of a log that hasn't grown, its last line unfinished), give exactly what
// one read of the finished logs gives, on many generated logs, with cuts inside lines, inside strings
// and inside multi-byte characters.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <tuple>

#include "AgentsTestSupport.h"
#include "agents/ClaudeCodeLog.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

using testing::iso;

std::string stampAt(int minute) {
    return fmt::format("2030-01-01T{:02d}:{:02d}:00.000Z", 8 + minute / 60, minute % 60);
}

std::string claudeLog(std::mt19937& random) {
    std::string log =
        R"({"type":"user","cwd":"/home/dev/ünï","gitBranch":"main","message":{"content":"fix 日本 bug"}})"
        "\n";
    for (int reply = 0; reply < 12; ++reply) {
        const std::string id = "m" + std::to_string(reply), request = "r" + std::to_string(reply);
        std::int64_t output = 1 + static_cast<std::int64_t>(random() % 5);
        for (std::uint32_t part = 0; part < 1 + random() % 3; ++part) {  // streamed over several lines
            output += static_cast<std::int64_t>(random() % 200);
            log += testing::claudeAssistant(id, reply % 5 == 4 ? "" : request, 10 + reply, output,
                                            stampAt(reply));
        }
        if (random() % 3 == 0) log += "not json at all\n{\"type\":\"user\",\"message\":\n";  // broken lines
        log += R"({"type":"user","timestamp":")" + stampAt(reply) + R"(","message":{"content":"next → )" +
               id + "\"}}\n";
    }
    return log;
}

std::vector<AIUsageEvent> sorted(std::vector<AIUsageEvent> events) {
    const auto key = [](const AIUsageEvent& e) {
        return std::tie(e.sessionId, e.timestamp, e.tool, e.model, e.input, e.output, e.cacheRead,
                        e.cacheWrite);
    };
    std::sort(events.begin(), events.end(), [&](const auto& a, const auto& b) { return key(a) < key(b); });
    return events;
}

class LogPiecesPropertyTest : public ::testing::Test {
protected:
    VirtualScheduler clock{iso("2030-01-01T12:00:00Z")};
    MapEnvironment environment;

    struct File {
        std::string relative;
        std::string text;
        std::size_t written = 0;
    };

    void expectSameAsOneRead(std::vector<File> files, std::mt19937& random) {
        testing::TempDir pieces;
        ClaudeCodeLog growing(environment, pieces.path(), clock);
        for (bool more = true; more;) {
            more = false;
            for (auto& file : files) {
                // Mostly short pieces, so line feeds fall anywhere, now and then a long one.
                const std::size_t length = random() % 8 == 0 ? random() % 3000 : random() % 40;
                testing::appendTo(pieces / file.relative,
                                  std::string_view(file.text).substr(file.written, length));
                testing::setModified(pieces / file.relative, clock.now());
                file.written = std::min(file.text.size(), file.written + length);
                more = more || file.written < file.text.size();
            }
            if (random() % 3 != 0) (void)growing.scan();
        }
        const auto piecewise = growing.scan();

        testing::TempDir whole;
        for (const auto& file : files) {
            testing::appendTo(whole / file.relative, file.text);
            testing::setModified(whole / file.relative, clock.now());
        }
        ClaudeCodeLog once(environment, whole.path(), clock);
        const auto expected = once.scan();

        // Replies of different files may arrive in another order; each is the same event.
        ASSERT_EQ(sorted(piecewise.events()), sorted(expected.events()));
        ASSERT_EQ(piecewise.sessions().size(), expected.sessions().size());
        for (const auto& [id, meta] : expected.sessions()) {
            AISessionMeta other = piecewise.sessions().at(id);
            other.fileURL = meta.fileURL;  // the two homes differ in their folder
            ASSERT_EQ(other, meta) << id;
        }
        ASSERT_EQ(growing.problems(), once.problems());
    }
};

TEST_F(LogPiecesPropertyTest, SeveralLogsGrowingTogetherGiveWhatOneReadGives) {
    for (std::uint32_t seed = 1; seed <= 30; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        // Two Claude Code logs share their replies: a resumed session copies the older one's.
        const std::string older = claudeLog(random);
        expectSameAsOneRead({{".claude/projects/p/older.jsonl", older},
                             {".claude/projects/q/resumed.jsonl", older + claudeLog(random)}},
                            random);
        if (HasFatalFailure()) return;
    }
}

}  // namespace
}  // namespace vantrelle
