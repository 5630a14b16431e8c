#include <gtest/gtest.h>

#include <array>

#include "AgentsTestSupport.h"
#include "agents/ClaudeCodeLog.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

using testing::claudeAssistant;

class ClaudeCodeLogTest : public ::testing::Test {
protected:
    testing::TempDir home;
    MapEnvironment environment;
    // The test lines are dated 1 January 2030; each write dates its file at the scanner's clock.
    VirtualScheduler clock{testing::iso("2030-01-01T12:00:00Z")};
    ClaudeCodeLog log{environment, home.path(), clock};

    void appendTo(const std::filesystem::path& file, std::string_view text) const {
        testing::appendTo(file, text);
        testing::setModified(file, clock.now());
    }
    void write(std::string_view relative, std::string_view text) const {
        testing::setModified(home.write(relative, text), clock.now());
    }

    std::filesystem::path claudeFile(std::string_view name = "s1.jsonl") const {
        return home / ".claude/projects/-home-dev-app" / name;
    }

    // Input, output and cache read of each event, in order.
    using Tokens = std::array<std::int64_t, 3>;
    static std::vector<Tokens> tokens(const AILogSnapshot& snapshot) {
        std::vector<Tokens> result;
        for (const auto& e : snapshot.events()) result.push_back({e.input, e.output, e.cacheRead});
        return result;
    }
};

TEST_F(ClaudeCodeLogTest, AReplyCopiedIntoAResumedSessionCountsOnceInTheOlderSession) {
    const auto prompt = [](std::string_view date) {
        return R"({"type":"user","timestamp":")" + std::string(date) + R"(","message":{"content":"go on"}})" +
               "\n";
    };
    // The resumed session's log sorts first by path but starts later.
    appendTo(claudeFile("b-older.jsonl"), prompt("2030-01-01T09:00:00Z") +
                                              claudeAssistant("m1", "r1", 10, 3) +
                                              claudeAssistant("m1", "r1", 10, 159));
    appendTo(claudeFile("a-resumed.jsonl"),
             prompt("2030-01-01T09:30:00Z") + claudeAssistant("m1", "r1", 10, 159) +
                 claudeAssistant("m2", "r2", 1, 1, "2030-01-01T11:00:00.000Z"));
    auto snapshot = log.scan();
    ASSERT_EQ(snapshot.events().size(), 2u);
    EXPECT_EQ(snapshot.events()[0].sessionId, "b-older");
    EXPECT_EQ(snapshot.events()[0].output, 159);
    EXPECT_EQ(snapshot.sessions().at("a-resumed").messages, 1);  // only its own reply m2

    // With the older log gone, its session goes and the copy is what remains.
    std::filesystem::remove(claudeFile("b-older.jsonl"));
    snapshot = log.scan();
    EXPECT_EQ(snapshot.sessions().at("a-resumed").messages, 2);
    EXPECT_FALSE(snapshot.sessions().contains("b-older"));

    // Logs that start together give a shared reply to the path that sorts first.
    appendTo(claudeFile("z.jsonl"), claudeAssistant("m9", "r9", 1, 1));
    appendTo(claudeFile("y.jsonl"), claudeAssistant("m9", "r9", 1, 1));
    snapshot = log.scan();
    EXPECT_EQ(snapshot.sessions().at("y").messages, 1);
    EXPECT_EQ(snapshot.sessions().at("z").messages, 0);
}

TEST_F(ClaudeCodeLogTest, ReadsMetadataPromptsTitlesAndKeepsBranchOverHead) {
    appendTo(
        claudeFile(),
        R"({"type":"user","cwd":"/home/dev/app","gitBranch":"main","timestamp":"2030-01-01T09:00:00Z","message":{"content":"  fix\nthe bug  "}})"
        "\n"
        R"({"type":"user","gitBranch":"HEAD","message":{"content":"<command>ls</command>"}})"
        "\n"
        R"({"type":"user","timestamp":"2030-01-01T11:00:00.500Z","message":{"content":"second prompt"}})"
        "\n"
        R"({"type":"ai-title","aiTitle":"Fixing the bug"})"
        "\n");
    const auto meta = log.scan().sessions().at("s1");
    EXPECT_EQ(meta.branch, "main");
    EXPECT_EQ(meta.firstPrompt, "fix the bug");
    EXPECT_EQ(meta.title, "Fixing the bug");
    EXPECT_EQ(meta.lastTimestamp, testing::iso("2030-01-01T11:00:00.500Z"));
}

TEST_F(ClaudeCodeLogTest, BrokenLinesChangeNothingAndTheOffsetMovesOn) {
    appendTo(claudeFile(),
             "not json\n[1,2]\n"
             R"({"type":"user","cwd":"/x","message":{"content":"hi"}} trailing)"
             "\n" +
                 claudeAssistant("m1", "r1", 1, 1));
    const auto snapshot = log.scan();
    EXPECT_EQ(snapshot.events().size(), 1u);
    EXPECT_EQ(snapshot.sessions().at("s1").cwd, "");
    EXPECT_FALSE(snapshot.sessions().at("s1").firstPrompt);
}

TEST_F(ClaudeCodeLogTest, AShrinkingFileIsForgottenAndReadFromItsStartInTheSameScan) {
    appendTo(claudeFile(), claudeAssistant("m1", "r1", 1, 1) + claudeAssistant("m2", "r2", 1, 1));
    ASSERT_EQ(log.scan().events().size(), 2u);
    write(".claude/projects/-home-dev-app/s1.jsonl", claudeAssistant("m1", "r1", 7, 7));
    const auto snapshot = log.scan();
    ASSERT_EQ(snapshot.events().size(), 1u);
    EXPECT_EQ(snapshot.events()[0].input, 7);  // the seen set went with the old state
}

TEST_F(ClaudeCodeLogTest, AnEventOlderThanThirtyDaysCountsInMessagesButIsPruned) {
    const Date old = clock.now() - 31 * 86400.0;
    appendTo(claudeFile(), claudeAssistant("m1", "r1", 1, 1, formatIsoDate(old)) +
                               claudeAssistant("m2", "r2", 1, 1, formatIsoDate(clock.now() - 60)));
    const auto snapshot = log.scan();
    ASSERT_EQ(snapshot.events().size(), 1u);
    EXPECT_EQ(snapshot.sessions().at("s1").messages, 2);
}

TEST_F(ClaudeCodeLogTest, AWholeObjectWithoutItsLineFeedCountsNowAndNotAgainWhenTheFeedComes) {
    std::string line = claudeAssistant("m1", "", 1, 1);  // no request id: a second reading would count twice
    line.pop_back();
    appendTo(claudeFile(), line);
    EXPECT_EQ(log.scan().events().size(), 1u);
    appendTo(claudeFile(), "\n" + claudeAssistant("m2", "r2", 1, 1));
    EXPECT_EQ(log.scan().events().size(), 2u);
    EXPECT_EQ(log.problems().total(), 0);
}

TEST_F(ClaudeCodeLogTest, ALineOverAMillionBytesIsSkippedToItsLineFeedWhateverPiecesItComesIn) {
    const std::string huge =
        R"({"type":"user","message":{"content":")" + std::string(1'500'000, 'x') + "\"}}";
    appendTo(claudeFile(), claudeAssistant("m1", "r1", 1, 1) + huge.substr(0, 1'200'000));
    EXPECT_EQ(log.scan().events().size(), 1u);
    EXPECT_EQ(log.problems().longLines, 1);
    appendTo(claudeFile(), huge.substr(1'200'000, 100'000));
    EXPECT_EQ(log.scan().events().size(), 1u);
    appendTo(claudeFile(), huge.substr(1'300'000) + "\n" + claudeAssistant("m2", "r2", 1, 1));
    EXPECT_EQ(log.scan().events().size(), 2u);
    EXPECT_EQ(log.problems().longLines, 1);  // one line, counted once
    EXPECT_EQ(log.problems().brokenLines, 0);

    // The same line arriving whole is skipped the same way.
    appendTo(claudeFile("whole.jsonl"), huge + "\n" + claudeAssistant("m3", "r3", 1, 1));
    EXPECT_EQ(log.scan().events().size(), 3u);
    EXPECT_EQ(log.problems().longLines, 2);
}

TEST_F(ClaudeCodeLogTest, BadFiguresNeverStopTheScanAndNeverTurnTotalsNegative) {
    const std::string max = "9223372036854775807";
    appendTo(
        claudeFile(),
        R"({"type":"assistant","requestId":"r","timestamp":"2030-01-01T10:00:00Z","message":{"id":"m","usage":{"input_tokens":)" +
            max + R"(,"output_tokens":)" + max +
            R"(,"cache_read_input_tokens":-5,"cache_creation_input_tokens":1e300}}})" + "\n");
    const auto snapshot = log.scan();
    ASSERT_EQ(snapshot.events().size(), 1u);
    EXPECT_EQ(snapshot.events()[0].cacheRead, 0);
    EXPECT_EQ(snapshot.events()[0].cacheWrite, 0);  // not an exact integer
    EXPECT_EQ(snapshot.events()[0].totalTokens(), std::numeric_limits<std::int64_t>::max());
}

TEST_F(ClaudeCodeLogTest, CodexTotalsBecomeDeltas) {
    const auto tokenCount = [](int in, int out, int cached) {
        return R"({"timestamp":"2030-01-01T10:00:00Z","type":"event_msg","payload":{"type":"token_count","info":{"total_token_usage":{"input_tokens":)" +
               std::to_string(in) + R"(,"output_tokens":)" + std::to_string(out) +
               R"(,"cached_input_tokens":)" + std::to_string(cached) +
               R"(},"model":"gpt-5-codex"}}})"
               "\n";
    };
    appendTo(home / ".codex/sessions/2030/01/01/rollout-c1.jsonl",
             tokenCount(100, 10, 40) + tokenCount(150, 10, 60));
    EXPECT_EQ(tokens(log.scan()), (std::vector<Tokens>{{60, 10, 40}, {30, 0, 20}}));
}

TEST_F(ClaudeCodeLogTest, GeminiMessagesAreReplacedByIdAndWholeFilesStartOver) {
    const auto reply = [](std::string_view id, int input) {
        return R"({"type":"gemini","id":")" + std::string(id) +
               R"(","timestamp":"2030-01-01T10:00:00Z","model":"gemini-2.5-pro","tokens":{"input":)" +
               std::to_string(input) +
               R"(,"cached":30,"output":5,"thoughts":2}})"
               "\n";
    };
    appendTo(home / ".gemini/tmp/abc/.project_root", "  /home/dev/site\n");
    appendTo(home / ".gemini/tmp/abc/chats/chat.jsonl",
             R"({"sessionId":"x","startTime":"2030-01-01T09:00:00Z","kind":"subagent"})"
             "\n" +
                 reply("g1", 100) +
                 R"({"type":"user","content":[{"text":"make"},{"text":"it"}]})"
                 "\n");
    auto snapshot = log.scan();
    EXPECT_EQ(tokens(snapshot), (std::vector<Tokens>{{70, 7, 30}}));
    EXPECT_EQ(snapshot.sessions().at("chat").cwd, "/home/dev/site");
    EXPECT_EQ(snapshot.sessions().at("chat").firstPrompt, "make it");

    appendTo(home / ".gemini/tmp/abc/chats/chat.jsonl", reply("g1", 500) + R"({"$rewindTo":"g1"})"
                                                                           "\n");
    EXPECT_EQ(tokens(log.scan()), (std::vector<Tokens>{{470, 7, 30}}));

    // A whole-file log rewritten with fewer messages loses the vanished ones.
    const auto message = [](std::string_view id) {
        return R"({"type":"gemini","id":")" + std::string(id) + R"(","tokens":{"input":10,"output":1}})";
    };
    write(".gemini/tmp/abc/chats/whole.json",
          R"({"startTime":"2030-01-01T08:00:00Z","summary":"Site work","messages":[)" + message("a") + "," +
              message("b") + "]}");
    EXPECT_EQ(log.scan().events().size(), 3u);
    clock.advance(2);  // a later modification date
    write(".gemini/tmp/abc/chats/whole.json", R"({"messages":[)" + message("a") + "]}");
    EXPECT_EQ(log.scan().events().size(), 2u);

    // An unparsable rewrite that doesn't shrink the file keeps what was there.
    clock.advance(2);
    write(".gemini/tmp/abc/chats/whole.json", "{ broken" + std::string(200, ' '));
    EXPECT_EQ(log.scan().events().size(), 2u);
}

}  // namespace
}  // namespace vantrelle
