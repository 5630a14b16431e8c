#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "NotesTestSupport.h"
#include "fakes/TempDir.h"
#include "notes/NotesStore.h"
#include "platform/VirtualScheduler.h"
#include "support/AtomicFile.h"

extern char** environ;

namespace vantrelle {
namespace {

// Starts the writer with its standard output on a pipe; gives its pid and the pipe's reading end.
std::pair<pid_t, int> startWriter(const std::filesystem::path& root) {
    int fds[2];
    if (::pipe(fds) != 0) return {-1, -1};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fds[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, fds[0]);
    const std::string program = NOTES_CRASH_WRITER;
    const std::string folder = root.string();
    char* argv[] = {const_cast<char*>(program.c_str()), const_cast<char*>(folder.c_str()), nullptr};
    pid_t pid = -1;
    const int spawned = ::posix_spawn(&pid, program.c_str(), &actions, nullptr, argv, environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(fds[1]);
    if (spawned != 0) {
        ::close(fds[0]);
        return {-1, -1};
    }
    return {pid, fds[0]};
}

// Waits for `count` finished saves; false if the writer ended first.
bool awaitSaves(int fd, int count) {
    char byte = 0;
    for (int seen = 0; seen < count;) {
        const ssize_t n = ::read(fd, &byte, 1);
        if (n == 1) {
            ++seen;
        } else if (n == 0 || errno != EINTR) {
            return false;
        }
    }
    return true;
}

// Whether a save was cut short: its temporary file is still beside the notes.
bool hasTemporary(const std::filesystem::path& root) {
    for (const auto& entry : std::filesystem::directory_iterator(root)) {
        if (isTemporaryFileName(entry.path().filename().string())) return true;
    }
    return false;
}

TEST(NotesCrashTest, AWriterKilledMidSaveAlwaysLeavesAFileThatLoads) {
    testing::TempDir dir;
    const std::filesystem::path root = dir / "Vantrelle";
    constexpr int kRounds = 200;
    constexpr int kMostRounds = 2000;  // where no kill landed mid-save yet, more rounds until one does
    bool interrupted = false;
    for (int round = 0; round < kRounds || (!interrupted && round < kMostRounds); ++round) {
        SCOPED_TRACE(round);
        const auto [pid, fd] = startWriter(root);
        ASSERT_GT(pid, 0);
        // One to three saves finish, then the kill falls somewhere in the next one.
        const bool saved = awaitSaves(fd, 1 + round % 3);
        ::kill(pid, SIGKILL);
        int status = 0;
        ::waitpid(pid, &status, 0);
        ::close(fd);
        ASSERT_TRUE(saved) << "the writer ended before it was killed";
        ASSERT_TRUE(WIFSIGNALED(status));
        interrupted = interrupted || hasTemporary(root);

        VirtualScheduler clock;
        NotificationCenter notifications;
        NotesStore store({root, dir / "tmp", clock, clock, notifications, false, {}});
        ASSERT_EQ(store.notes().size(), 1u);
        EXPECT_TRUE(store.notes()[0].body.starts_with("iteration "));
        ASSERT_TRUE(testing::unreadableCopies(root / "notes.json").empty());
    }
    // The temporaries that killed writes left behind show the kills did land in the middle of saves.
    EXPECT_TRUE(interrupted);
}

}  // namespace
}  // namespace vantrelle
