// A real server on loopback, found through /proc and stopped with a real signal; timers run on virtual time,
// and the test waits only for the server's own output and end.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QProcess>
#include <csignal>

#include "fakes/TempDir.h"
#include "monitors/DevServerMonitor.h"
#include "monitors/ProcListeningPorts.h"
#include "monitors/ProcProcessControl.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

// Below the ephemeral range, where a bare Python server would not count as a development server.
int freePort() {
    for (int port = 20000 + ::getpid() % 20000; port < 40000; ++port) {
        const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(static_cast<std::uint16_t>(port));
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const bool free = ::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
        ::close(fd);
        if (free) return port;
    }
    return 0;
}

// python3's HTTP server on loopback in a folder named "shop"; it prints "Serving HTTP" once it listens.
class DevServerLiveTest : public ::testing::Test {
protected:
    void SetUp() override {
        web.setWorkingDirectory(QString::fromStdString(shop.string()));
        web.start(QStringLiteral("python3"),
                  {QStringLiteral("-u"), QStringLiteral("-m"), QStringLiteral("http.server"),
                   QString::number(port), QStringLiteral("--bind"), QStringLiteral("127.0.0.1")});
        QByteArray output;
        while (!output.contains("Serving HTTP") && web.waitForReadyRead(20000)) output += web.readAll();
        ASSERT_TRUE(output.contains("Serving HTTP")) << output.toStdString();
    }
    [[nodiscard]] std::optional<DevServer> listed(qint64 pid) const {
        for (const auto& server : monitor.servers()) {
            if (server.pid == pid) return server;
        }
        return std::nullopt;
    }

    testing::TempDir dir;
    const std::filesystem::path shop = dir.write("shop/.keep", "").parent_path();
    const int port = freePort();
    QProcess web;
    VirtualScheduler clock;
    InlineQueueFactory queues;
    ProcListeningPorts proc;
    ProcProcessControl control;
    DevServerMonitor monitor{{clock, clock, queues, proc, control, ::getpid(), "/nonexistent-home", false}};
};

TEST_F(DevServerLiveTest, ListsARealServerAndStopsItWithTheFirstSignal) {
    monitor.refresh();
    clock.runUntilIdle();
    const auto server = listed(web.processId());
    ASSERT_TRUE(server);
    EXPECT_EQ(server->port, port);
    EXPECT_EQ(server->kind, "Python");
    EXPECT_EQ(server->project(), "shop");

    monitor.stop(*server);
    ASSERT_TRUE(web.waitForFinished(20000));
    EXPECT_EQ(web.exitStatus(), QProcess::CrashExit);
    EXPECT_EQ(web.exitCode(), SIGTERM);
    clock.advance(DevServerMonitor::kRefreshDelay);
    EXPECT_FALSE(listed(server->pid));
}

}  // namespace
}  // namespace vantrelle
