// Real servers on loopback, found through /proc (and lsof where installed), stopped with real signals.
// Timers run on virtual time; the test waits only for the children themselves (their "ready" line,
// their end), never for a clock.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <random>
#include <set>

#include "ChildProcess.h"
#include "QtProcessRunner.h"
#include "fakes/TempDir.h"
#include "monitors/DevServerMonitor.h"
#include "monitors/LsofListeningPorts.h"
#include "monitors/ProcListeningPorts.h"
#include "monitors/ProcProcessControl.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

using testing::ChildProcess;

bool portIsFree(int port) {
    const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const bool free = ::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    ::close(fd);
    return free;
}

int freePort(int from, int to) {
    static std::mt19937 random(static_cast<unsigned>(::getpid()));
    for (int attempt = 0; attempt < 200; ++attempt) {
        const int port = std::uniform_int_distribution<int>(from, to)(random);
        if (portIsFree(port)) return port;
    }
    return 0;
}

constexpr const char* kStubbornServer =
    "import signal, socket, sys\n"
    "signal.signal(signal.SIGTERM, signal.SIG_IGN)\n"
    "s = socket.socket(); s.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)\n"
    "s.bind(('127.0.0.1', int(sys.argv[1]))); s.listen()\n"
    "print('ready', flush=True)\n"
    "while True: signal.pause()\n";

// Each test has python3's HTTP server on loopback in a folder named "shop"; it prints "Serving HTTP"
// once it listens.
class DevServerLiveTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(web.waitFor("Serving HTTP")); }

    void scan() {
        monitor.refresh();
        clock.runUntilIdle();
    }
    [[nodiscard]] std::optional<DevServer> listed(pid_t pid) const {
        for (const auto& server : monitor.servers()) {
            if (server.pid == pid) return server;
        }
        return std::nullopt;
    }

    testing::TempDir dir;
    const std::filesystem::path shop = dir.write("shop/.keep", "").parent_path();
    const int port = freePort(20000, 40000);
    ChildProcess web{{"python3", "-u", "-m", "http.server", std::to_string(port), "--bind", "127.0.0.1"},
                     shop};
    VirtualScheduler clock;
    InlineQueueFactory queues;
    ProcListeningPorts proc;
    ProcProcessControl control;
    DevServerMonitor monitor{{clock, clock, queues, proc, control, ::getpid(), "/nonexistent-home", false}};
};

// The rules themselves are tables in DevServerRulesTest; this proves /proc gives them the port, the
// command line and the folder of a real server, and that the signals reach real processes.
TEST_F(DevServerLiveTest, ListsARealServerAndStopsItWithTheFirstSignalAndOneIgnoringItAfterThreeSeconds) {
    const auto script = dir.write("stubborn/stubborn.py", kStubbornServer);
    ChildProcess stubborn({"python3", "-u", script.string(), std::to_string(freePort(20000, 40000))},
                          script.parent_path());
    ASSERT_TRUE(stubborn.waitFor("ready"));
    scan();
    const auto server = listed(web.pid());
    const auto ignoring = listed(stubborn.pid());
    ASSERT_TRUE(server && ignoring);
    EXPECT_EQ(server->port, port);
    EXPECT_EQ(server->kind, "Python");
    EXPECT_EQ(server->project(), "shop");

    monitor.stop(*server);
    monitor.stop(*ignoring);
    EXPECT_EQ(web.waitForEnd(), SIGTERM);
    clock.advance(DevServerMonitor::kRefreshDelay);
    EXPECT_FALSE(listed(server->pid));

    clock.advance(DevServerMonitor::kKillDelay - DevServerMonitor::kRefreshDelay - 0.01);
    EXPECT_TRUE(stubborn.running());
    EXPECT_TRUE(listed(stubborn.pid())) << "still listening after the polite signal";
    clock.advance(0.01);
    EXPECT_EQ(stubborn.waitForEnd(), SIGKILL);
}

TEST_F(DevServerLiveTest, LsofAndProcTablesAgreeOnOurServer) {
    QtProcessRunner runner;
    LsofListeningPorts lsof(runner);
    std::string error;
    if (!lsof.list(error)) GTEST_SKIP() << "lsof is not installed";
    const auto ours = [&](ListeningPorts& source) {
        std::set<std::tuple<pid_t, std::string, std::int64_t>> found;
        for (const auto& socket : source.list(error).value_or(std::vector<ListeningSocket>{})) {
            if (socket.pid == web.pid()) found.insert({socket.pid, socket.command, socket.port});
        }
        return found;
    };
    const auto fromProc = ours(proc);
    EXPECT_EQ(fromProc.size(), 1U);
    EXPECT_EQ(fromProc, ours(lsof));
}

}  // namespace
}  // namespace vantrelle
