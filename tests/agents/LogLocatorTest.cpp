// Walking the agents' log folders: links that loop, logs reached twice, and things that aren't files.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "AgentsTestSupport.h"
#include "agents/ClaudeCodeLog.h"
#include "agents/LogLocator.h"
#include "agents/RegularFile.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "support/FileDescriptor.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;

class LogLocatorTest : public ::testing::Test {
protected:
    testing::TempDir home;
    VirtualScheduler clock{testing::iso("2030-01-01T12:00:00Z")};

    fs::path log(std::string_view relative, std::string_view text) {
        const auto path = home.write(relative, text);
        testing::setModified(path, clock.now());
        return path;
    }
    std::vector<LogCandidate> candidates() const {
        return candidateLogFiles(home.path(), clock.now() - ClaudeCodeLog::window);
    }
};

TEST_F(LogLocatorTest, SymlinkCyclesEndAtOnceAndEachLogCountsOnce) {
    log(".claude/projects/p/s1.jsonl", testing::claudeAssistant("m1", "r1", 1, 1));
    log(".codex/sessions/2030/01/rollout-1.jsonl", "{}\n");
    log(".gemini/tmp/h/chats/chat.jsonl", "{}\n");
    // Two links back to their own folder in every tree: followed blindly, 2^30 folders.
    for (const char* folder : {".claude/projects", ".claude/projects/p", ".codex/sessions",
                               ".codex/sessions/2030/01", ".gemini/tmp", ".gemini/tmp/h/chats"}) {
        fs::create_directory_symlink(".", home / folder / "loop");
        fs::create_directory_symlink("..", home / folder / "up");
    }
    EXPECT_EQ(candidates().size(), 3u);
}

TEST_F(LogLocatorTest, ALogReachedTwiceThroughLinksIsReadOnce) {
    const auto file = log(".claude/projects/p/s1.jsonl", testing::claudeAssistant("m1", "", 1, 1));
    fs::create_directory_symlink(home / ".claude/projects/p", home / ".claude/projects/q");
    fs::create_hard_link(file, home / ".claude/projects/p/s2.jsonl");
    fs::create_symlink(file, home / ".claude/projects/p/s3.jsonl");
    ASSERT_EQ(candidates().size(), 1u);
    MapEnvironment environment;
    ClaudeCodeLog scanner(environment, home.path(), clock);
    EXPECT_EQ(scanner.scan().events().size(), 1u);  // a reply without a key would count per copy
}

TEST_F(LogLocatorTest, OnlyRegularFilesAreLogsAndAFifoNeverHoldsTheScan) {
    log(".claude/projects/p/s1.jsonl", testing::claudeAssistant("m1", "r1", 1, 1));
    log(".gemini/tmp/h/chats/chat.jsonl", R"({"type":"gemini","id":"g","tokens":{"input":5}})"
                                          "\n");
    // A FIFO where a log and where Gemini's project root are expected: a blocking open waits for a writer.
    ASSERT_EQ(::mkfifo((home / ".claude/projects/p/fifo.jsonl").c_str(), 0600), 0);
    ASSERT_EQ(::mkfifo((home / ".gemini/tmp/h/.project_root").c_str(), 0600), 0);
    fs::create_directories(home / ".codex/sessions/folder.jsonl");
    EXPECT_EQ(candidates().size(), 2u);
    MapEnvironment environment;
    ClaudeCodeLog scanner(environment, home.path(), clock);
    const auto snapshot = scanner.scan();
    EXPECT_EQ(snapshot.events().size(), 2u);
    EXPECT_EQ(snapshot.sessions().at("chat").cwd, "h");  // the project folder's name stands in
}

TEST_F(LogLocatorTest, OpeningAFifoInPlaceOfALogReturnsAtOnceWithNothing) {
    // A log replaced by a FIFO between the listing and the read is refused by the open itself.
    const auto fifo = home / "log.jsonl";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    EXPECT_EQ(openRegularFile(fifo), -1);
    EXPECT_EQ(openRegularFile(home.path()), -1);
    EXPECT_TRUE(FileDescriptor(openRegularFile(log("text", "abcdef"))).isOpen());
}

}  // namespace
}  // namespace vantrelle
