#include <gtest/gtest.h>

#include "AgentsTestSupport.h"
#include "agents/ClaudeCodeLog.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

using testing::appendTo;
using testing::claudeAssistant;

class ClaudeCodeLogTest : public ::testing::Test {
protected:
    testing::TempDir home;
    MapEnvironment environment;
    // Log files carry the real modification time, so the scanner's clock starts at the real now.
    VirtualScheduler clock{SystemClock::shared().now()};
    ClaudeCodeLog log{environment, home.path(), clock};

    std::filesystem::path claudeFile(std::string_view name = "s1.jsonl") const {
        return home / ".claude/projects/-home-dev-app" / name;
    }
    std::filesystem::path codexFile() const { return home / ".codex/sessions/2030/01/01/rollout-c1.jsonl"; }
    std::filesystem::path geminiFile(std::string_view name) const {
        return home / ".gemini/tmp/abc/chats" / name;
    }

    static std::string stamp(Date date) { return formatIsoDate(date); }
};

TEST_F(ClaudeCodeLogTest, StreamedRepeatsOfAReplyCountOnceAndTheFirstWins) {
    appendTo(claudeFile(), claudeAssistant("m1", "r1", 10, 5) + claudeAssistant("m1", "r1", 10, 50) +
                               claudeAssistant("m1", "r1", 10, 500));
    auto snapshot = log.scan();
    ASSERT_EQ(snapshot.events().size(), 1u);
    EXPECT_EQ(snapshot.events()[0].output, 5);
    EXPECT_EQ(snapshot.events()[0].cacheRead, 3);
    EXPECT_EQ(snapshot.events()[0].cacheWrite, 4);
    EXPECT_EQ(snapshot.sessions().at("s1").messages, 1);
    EXPECT_EQ(snapshot.sessions().at("s1").modelCounts.at("claude-sonnet-4-5"), 1);

    // A later scan that sees the same reply again still doesn't count it.
    appendTo(claudeFile(), claudeAssistant("m1", "r1", 10, 900));
    snapshot = log.scan();
    EXPECT_EQ(snapshot.events().size(), 1u);

    // Copied into another session's file, the reply counts there too.
    appendTo(claudeFile("s2.jsonl"), claudeAssistant("m1", "r1", 10, 5));
    snapshot = log.scan();
    EXPECT_EQ(snapshot.events().size(), 2u);
}

TEST_F(ClaudeCodeLogTest, AReplyWithoutRequestIdOrUuidCountsEachTime) {
    appendTo(claudeFile(), claudeAssistant("m1", "", 1, 1) + claudeAssistant("m1", "", 1, 1));
    EXPECT_EQ(log.scan().events().size(), 2u);
    appendTo(claudeFile(), claudeAssistant("m1", "", 1, 1));
    const auto snapshot = log.scan();
    EXPECT_EQ(snapshot.events().size(), 3u);
    EXPECT_EQ(snapshot.sessions().at("s1").messages, 3);
}

TEST_F(ClaudeCodeLogTest, ReadsMetadataPromptsTitlesAndKeepsBranchOverHead) {
    appendTo(
        claudeFile(),
        R"({"type":"user","cwd":"/home/dev/app","gitBranch":"main","timestamp":"2030-01-01T09:00:00Z","message":{"content":"  fix\nthe bug  "}})"
        "\n"
        R"({"type":"user","gitBranch":"HEAD","message":{"content":"<command>ls</command>"}})"
        "\n"
        R"({"type":"user","gitBranch":"","message":{"content":[{"type":"text","text":"array form"}]}})"
        "\n"
        R"({"type":"user","message":{"content":"[Image #1] look"}})"
        "\n"
        R"({"type":"user","timestamp":"2030-01-01T11:00:00.500Z","message":{"content":"second prompt"}})"
        "\n"
        R"({"type":"ai-title","aiTitle":"Fixing the bug"})"
        "\n");
    auto meta = log.scan().sessions().at("s1");
    EXPECT_EQ(meta.cwd, "/home/dev/app");
    EXPECT_EQ(meta.branch, "main");
    EXPECT_EQ(meta.firstPrompt, "fix the bug");
    EXPECT_EQ(meta.lastPrompt, "second prompt");
    EXPECT_EQ(meta.title, "Fixing the bug");
    EXPECT_EQ(meta.firstTimestamp, testing::iso("2030-01-01T09:00:00Z"));
    EXPECT_EQ(meta.lastTimestamp, testing::iso("2030-01-01T11:00:00.500Z"));
    EXPECT_EQ(meta.tool, AgentTool::claudeCode);

    // The later title line wins, whichever kind; customTitle goes before title.
    appendTo(claudeFile(), R"({"type":"custom-title","title":"second","customTitle":"Mine"})"
                           "\n");
    meta = log.scan().sessions().at("s1");
    EXPECT_EQ(meta.title, "Mine");
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
    home.write(".claude/projects/-home-dev-app/s1.jsonl", claudeAssistant("m1", "r1", 7, 7));
    const auto snapshot = log.scan();
    ASSERT_EQ(snapshot.events().size(), 1u);
    EXPECT_EQ(snapshot.events()[0].input, 7);  // the seen set went with the old state
    EXPECT_EQ(snapshot.sessions().at("s1").messages, 1);
}

TEST_F(ClaudeCodeLogTest, RemovedFilesTakeTheirSessionsAndEventsWithThem) {
    appendTo(claudeFile(), claudeAssistant("m1", "r1", 1, 1));
    ASSERT_EQ(log.scan().sessions().size(), 1u);
    std::filesystem::remove(claudeFile());
    const auto snapshot = log.scan();
    EXPECT_TRUE(snapshot.events().empty());
    EXPECT_TRUE(snapshot.sessions().empty());
    EXPECT_EQ(log.fileCount(), 0u);
}

TEST_F(ClaudeCodeLogTest, AnEventOlderThanThirtyDaysCountsInMessagesButIsPruned) {
    const Date old = clock.now() - 31 * 86400.0;
    appendTo(claudeFile(), claudeAssistant("m1", "r1", 1, 1, stamp(old)) +
                               claudeAssistant("m2", "r2", 1, 1, stamp(clock.now() - 60)));
    const auto snapshot = log.scan();
    ASSERT_EQ(snapshot.events().size(), 1u);
    EXPECT_EQ(snapshot.events()[0].timestamp, testing::iso(stamp(clock.now() - 60)));
    EXPECT_EQ(snapshot.sessions().at("s1").messages, 2);
}

TEST_F(ClaudeCodeLogTest, AnUnfinishedTailIsReadTwiceOverAndItsLineDropped) {
    const std::string second = claudeAssistant("m2", "r2", 1, 1);
    appendTo(claudeFile(), claudeAssistant("m1", "r1", 1, 1) + second.substr(0, 20));
    EXPECT_EQ(log.scan().events().size(), 1u);
    appendTo(claudeFile(), second.substr(20) + claudeAssistant("m3", "r3", 1, 1));
    const auto snapshot = log.scan();
    ASSERT_EQ(snapshot.events().size(), 2u);  // m2's line came back joined with its own start: dropped
    EXPECT_EQ(snapshot.sessions().at("s1").messages, 2);
}

TEST(ClaudeCodeLogDeathTest, AnUnfinishedTailWithNothingNewIsFatal) {
    testing::TempDir home;
    MapEnvironment environment;
    VirtualScheduler clock{SystemClock::shared().now()};
    appendTo(home / ".claude/projects/p/s.jsonl", R"({"type":"user")");
    EXPECT_DEATH(
        {
            ClaudeCodeLog log(environment, home.path(), clock);
            (void)log.scan();
            (void)log.scan();
        },
        "unfinished line");
}

TEST_F(ClaudeCodeLogTest, CodexTotalsBecomeDeltas) {
    const auto tokenCount = [](int in, int out, int cached) {
        return R"({"timestamp":"2030-01-01T10:00:00Z","type":"event_msg","payload":{"type":"token_count","info":{"total_token_usage":{"input_tokens":)" +
               std::to_string(in) + R"(,"output_tokens":)" + std::to_string(out) +
               R"(,"cached_input_tokens":)" + std::to_string(cached) +
               R"(},"model":"gpt-5-codex"}}})"
               "\n";
    };
    appendTo(codexFile(),
             R"({"type":"session_meta","payload":{"cwd":"/home/dev/api","git":{"branch":"dev"}}})"
             "\n" +
                 tokenCount(100, 10, 40) + tokenCount(150, 10, 60));
    auto snapshot = log.scan();
    ASSERT_EQ(snapshot.events().size(), 2u);
    EXPECT_EQ(snapshot.events()[0].input, 60);
    EXPECT_EQ(snapshot.events()[0].output, 10);
    EXPECT_EQ(snapshot.events()[0].cacheRead, 40);
    EXPECT_EQ(snapshot.events()[1].input, 30);
    EXPECT_EQ(snapshot.events()[1].output, 0);
    EXPECT_EQ(snapshot.events()[1].cacheRead, 20);
    EXPECT_EQ(snapshot.events()[1].model, "gpt-5-codex");
    EXPECT_EQ(snapshot.sessions().at("rollout-c1").cwd, "/home/dev/api");
    EXPECT_EQ(snapshot.sessions().at("rollout-c1").branch, "dev");

    // A counter that falls gives nothing; the next delta runs from the lower value.
    appendTo(codexFile(), tokenCount(20, 10, 0) +
                              R"({"type":"event_msg","payload":{"type":"token_count","info":null}})"
                              "\n" +
                              tokenCount(30, 10, 0));
    snapshot = log.scan();
    ASSERT_EQ(snapshot.events().size(), 3u);
    EXPECT_EQ(snapshot.events()[2].input, 10);
    EXPECT_EQ(snapshot.sessions().at("rollout-c1").messages, 3);
}

TEST_F(ClaudeCodeLogTest, GeminiMessagesAreReplacedByIdAndWholeFilesStartOver) {
    const auto reply = [](std::string_view id, int input) {
        return R"({"type":"gemini","id":")" + std::string(id) +
               R"(","timestamp":"2030-01-01T10:00:00Z","model":"gemini-2.5-pro","tokens":{"input":)" +
               std::to_string(input) +
               R"(,"cached":30,"output":5,"thoughts":2}})"
               "\n";
    };
    testing::appendTo(home / ".gemini/tmp/abc/.project_root", "  /home/dev/site\n");
    appendTo(geminiFile("chat.jsonl"),
             R"({"sessionId":"x","startTime":"2030-01-01T09:00:00Z","kind":"subagent"})"
             "\n" +
                 reply("g1", 100) +
                 R"({"type":"user","content":[{"text":"make"},{"text":"it"}]})"
                 "\n");
    auto snapshot = log.scan();
    ASSERT_EQ(snapshot.events().size(), 1u);
    EXPECT_EQ(snapshot.events()[0].input, 70);
    EXPECT_EQ(snapshot.events()[0].output, 7);
    EXPECT_EQ(snapshot.events()[0].cacheRead, 30);
    const auto& meta = snapshot.sessions().at("chat");
    EXPECT_EQ(meta.cwd, "/home/dev/site");
    EXPECT_EQ(meta.title, "Subagent");
    EXPECT_EQ(meta.firstPrompt, "make it");

    appendTo(geminiFile("chat.jsonl"), reply("g1", 500) + R"({"$rewindTo":"g1"})"
                                                          "\n");
    snapshot = log.scan();
    ASSERT_EQ(snapshot.events().size(), 1u);
    EXPECT_EQ(snapshot.events()[0].input, 470);
    EXPECT_EQ(snapshot.sessions().at("chat").messages, 1);

    // A whole-file log rewritten with fewer messages loses the vanished ones.
    const auto message = [](std::string_view id) {
        return R"({"type":"gemini","id":")" + std::string(id) + R"(","tokens":{"input":10,"output":1}})";
    };
    home.write(".gemini/tmp/abc/chats/whole.json",
               R"({"startTime":"2030-01-01T08:00:00Z","summary":"Site work","messages":[)" + message("a") +
                   "," + message("b") + "]}");
    snapshot = log.scan();
    EXPECT_EQ(snapshot.events().size(), 3u);
    EXPECT_EQ(snapshot.sessions().at("whole").title, "Site work");
    clock.advance(2);  // a later modification date
    home.write(".gemini/tmp/abc/chats/whole.json", R"({"messages":[)" + message("a") + "]}");
    std::filesystem::last_write_time(geminiFile("whole.json"),
                                     std::filesystem::file_time_type::clock::now() + std::chrono::seconds(2));
    snapshot = log.scan();
    EXPECT_EQ(snapshot.events().size(), 2u);
    EXPECT_EQ(snapshot.sessions().at("whole").messages, 1);
    EXPECT_FALSE(snapshot.sessions().at("whole").title);

    // An unparsable rewrite that doesn't shrink the file keeps what was there.
    home.write(".gemini/tmp/abc/chats/whole.json", "{ broken" + std::string(200, ' '));
    std::filesystem::last_write_time(geminiFile("whole.json"),
                                     std::filesystem::file_time_type::clock::now() + std::chrono::seconds(4));
    snapshot = log.scan();
    EXPECT_EQ(snapshot.events().size(), 2u);
}

TEST_F(ClaudeCodeLogTest, HomeComesFromTheEnvironmentHook) {
    environment.set("VANTRELLE_AI_HOME", "/elsewhere");
    EXPECT_EQ(ClaudeCodeLog::resolveHome(environment, "/home/me"), "/elsewhere");
    EXPECT_EQ(ClaudeCodeLog::resolveHome(MapEnvironment{}, "/home/me"), "/home/me");
}

}  // namespace
}  // namespace vantrelle
