#pragma once

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

extern char** environ;

namespace vantrelle::testing {

// A child process whose standard output the test reads, so it can wait for the child to say it is
// ready instead of sleeping. Killed and reaped at the end of the test.
class ChildProcess {
public:
    ChildProcess(const std::vector<std::string>& argv, const std::filesystem::path& cwd) {
        int fds[2];
        if (::pipe2(fds, O_CLOEXEC) != 0) return;
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, fds[1], STDOUT_FILENO);
        posix_spawn_file_actions_addchdir_np(&actions, cwd.c_str());
        std::vector<char*> args;
        for (const auto& arg : argv) args.push_back(const_cast<char*>(arg.c_str()));
        args.push_back(nullptr);
        if (posix_spawnp(&m_pid, args[0], &actions, nullptr, args.data(), environ) != 0) m_pid = 0;
        posix_spawn_file_actions_destroy(&actions);
        ::close(fds[1]);
        m_out = fds[0];
    }
    ~ChildProcess() {
        if (m_pid > 0 && !m_reaped) {
            ::kill(m_pid, SIGKILL);
            ::waitpid(m_pid, nullptr, 0);
        }
        if (m_out >= 0) ::close(m_out);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    [[nodiscard]] pid_t pid() const { return m_pid; }
    // Blocks until the child printed a line containing `word` (true) or closed its output (false).
    bool waitFor(const std::string& word) {
        std::string seen;
        char c = 0;
        while (::read(m_out, &c, 1) == 1) {
            seen.push_back(c);
            if (seen.find(word) != std::string::npos) return true;
        }
        return false;
    }
    // Blocks until the child ended; gives the signal that ended it, or 0.
    int waitForEnd() {
        int status = 0;
        if (::waitpid(m_pid, &status, 0) != m_pid) return -1;
        m_reaped = true;
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }
    // Whether the child is still running, without waiting.
    bool running() {
        int status = 0;
        if (m_reaped) return false;
        if (::waitpid(m_pid, &status, WNOHANG) == 0) return true;
        m_reaped = true;
        return false;
    }

private:
    pid_t m_pid = 0;
    int m_out = -1;
    bool m_reaped = false;
};

}  // namespace vantrelle::testing
