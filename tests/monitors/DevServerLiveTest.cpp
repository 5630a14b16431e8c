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

constexpr const char* kNodeServer =
    "const port = +process.argv[2];\n"
    "require('http').createServer((q, s) => s.end('ok')).listen(port, '127.0.0.1', () => "
    "console.log('ready'));\n";

constexpr const char* kStubbornServer =
    "import signal, socket, sys\n"
    "signal.signal(signal.SIGTERM, signal.SIG_IGN)\n"
    "s = socket.socket(); s.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)\n"
    "s.bind(('127.0.0.1', int(sys.argv[1]))); s.listen()\n"
    "print('ready', flush=True)\n"
    "while True: signal.pause()\n";

class DevServerLiveTest : public ::testing::Test {
protected:
    DevServerLiveTest() {
        dir.write("shop/.keep", "");
        dir.write("plain/serve.js", kNodeServer);
        dir.write("front/vite.js", kNodeServer);
        dir.write("stubborn/stubborn.py", kStubbornServer);
        dir.write("tools/.keep", "");
    }

    // python3's HTTP server on loopback; it prints "Serving HTTP" once it listens.
    static std::vector<std::string> httpServer(int port, std::vector<std::string> more = {}) {
        std::vector<std::string> argv{"python3", "-u",       "-m", "http.server", std::to_string(port),
                                      "--bind",  "127.0.0.1"};
        argv.insert(argv.end(), more.begin(), more.end());
        return argv;
    }
    void scan(DevServerMonitor& monitor) {
        monitor.refresh();
        clock.runUntilIdle();
    }
    DevServerMonitor::Deps deps(ListeningPorts& source) {
        return {clock, clock, queues, source, control, ::getpid(), "/nonexistent-home", false};
    }
    [[nodiscard]] std::optional<DevServer> listed(const DevServerMonitor& monitor, pid_t pid) const {
        for (const auto& server : monitor.servers()) {
            if (server.pid == pid) return server;
        }
        return std::nullopt;
    }
    static bool haveNode() { return std::system("node --version > /dev/null 2>&1") == 0; }

    testing::TempDir dir;
    VirtualScheduler clock;
    InlineQueueFactory queues;
    ProcListeningPorts proc;
    ProcProcessControl control;
};

TEST_F(DevServerLiveTest, ListsRealServersAndFiltersLikeTheRules) {
    const int webPort = freePort(20000, 40000);
    ChildProcess web(httpServer(webPort), dir / "shop");
    ASSERT_TRUE(web.waitFor("Serving HTTP"));
    const int mcpPort = freePort(20000, 40000);
    ChildProcess mcp(httpServer(mcpPort, {"--directory", (dir / "tools" / "files-mcp-server").string()}),
                     dir / "tools");
    ASSERT_TRUE(mcp.waitFor("Serving HTTP"));

    DevServerMonitor monitor(deps(proc));
    scan(monitor);
    const auto server = listed(monitor, web.pid());
    ASSERT_TRUE(server);
    EXPECT_EQ(server->port, webPort);
    EXPECT_EQ(server->kind, "Python");
    EXPECT_EQ(server->project(), "shop");
    EXPECT_FALSE(listed(monitor, mcp.pid())) << "an agent's tool server is refused";

    if (!haveNode()) GTEST_SKIP() << "node is not installed";
    const int highPort = freePort(52000, 60000);
    ChildProcess plain({"node", (dir / "plain" / "serve.js").string(), std::to_string(highPort)},
                       dir / "plain");
    ASSERT_TRUE(plain.waitFor("ready"));
    const int vitePort = freePort(52000, 60000);
    ChildProcess vite({"node", (dir / "front" / "vite.js").string(), std::to_string(vitePort)},
                      dir / "front");
    ASSERT_TRUE(vite.waitFor("ready"));
    scan(monitor);
    EXPECT_FALSE(listed(monitor, plain.pid())) << "bare node on an ephemeral port is its helper port";
    const auto front = listed(monitor, vite.pid());
    ASSERT_TRUE(front);
    EXPECT_EQ(front->kind, "Vite");
    EXPECT_EQ(front->port, vitePort);
}

TEST_F(DevServerLiveTest, LsofAndProcTablesAgreeOnOurServers) {
    QtProcessRunner runner;
    LsofListeningPorts lsof(runner);
    std::string error;
    if (!lsof.list(error)) GTEST_SKIP() << "lsof is not installed";
    const int port = freePort(20000, 40000);
    ChildProcess web(httpServer(port), dir / "shop");
    ASSERT_TRUE(web.waitFor("Serving HTTP"));

    const auto ours = [&](ListeningPorts& source) {
        std::set<std::tuple<pid_t, std::string, std::int64_t>> found;
        std::string why;
        for (const auto& socket : source.list(why).value_or(std::vector<ListeningSocket>{})) {
            if (socket.pid == web.pid()) found.insert({socket.pid, socket.command, socket.port});
        }
        return found;
    };
    const auto fromProc = ours(proc);
    EXPECT_EQ(fromProc.size(), 1U);
    EXPECT_EQ(fromProc, ours(lsof));
}

TEST_F(DevServerLiveTest, StopEndsAServerWithTheFirstSignalAndKillsOneIgnoringItAfterThreeSeconds) {
    const int port = freePort(20000, 40000);
    ChildProcess web(httpServer(port), dir / "shop");
    ASSERT_TRUE(web.waitFor("Serving HTTP"));
    const int stubbornPort = freePort(20000, 40000);
    ChildProcess stubborn(
        {"python3", "-u", (dir / "stubborn" / "stubborn.py").string(), std::to_string(stubbornPort)},
        dir / "stubborn");
    ASSERT_TRUE(stubborn.waitFor("ready"));
    DevServerMonitor monitor(deps(proc));
    scan(monitor);
    const auto server = listed(monitor, web.pid());
    const auto ignoring = listed(monitor, stubborn.pid());
    ASSERT_TRUE(server && ignoring);
    monitor.stop(*server);
    monitor.stop(*ignoring);
    EXPECT_EQ(web.waitForEnd(), SIGTERM);
    clock.advance(DevServerMonitor::kRefreshDelay);
    EXPECT_FALSE(listed(monitor, server->pid));
    EXPECT_FALSE(monitor.stopping().contains(port));

    clock.advance(DevServerMonitor::kKillDelay - DevServerMonitor::kRefreshDelay - 0.01);
    EXPECT_TRUE(stubborn.running());
    EXPECT_TRUE(listed(monitor, stubborn.pid())) << "still listening after the polite signal";
    clock.advance(0.01);
    EXPECT_EQ(stubborn.waitForEnd(), SIGKILL);
}

}  // namespace
}  // namespace vantrelle
