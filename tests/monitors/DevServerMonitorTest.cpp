#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "fakes/FakeDevServerPlatform.h"
#include "fakes/LogCapture.h"
#include "monitors/DevServerMonitor.h"
#include "monitors/DevServerReport.h"
#include "monitors/DevServerRules.h"
#include "monitors/ListeningOutput.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

using testing::FakeDevServerPlatform;

class DevServerMonitorTest : public ::testing::Test {
protected:
    DevServerMonitorTest() {
        platform.add(4100, "node", 5173, {"node /w/shop/node_modules/.bin/vite", "/usr/bin/node", "/w/shop"});
        platform.add(4200, "python3", 8000, {"python3 -m http.server 8000", "/usr/bin/python3", "/w/api"});
    }

    DevServerMonitor& make(bool demo = false) {
        monitor = std::make_unique<DevServerMonitor>(DevServerMonitor::Deps{
            clock, clock, queues, platform, platform, /*ownPid=*/999, "/home/ada", demo});
        return *monitor;
    }
    [[nodiscard]] std::vector<std::int64_t> ports() const {
        std::vector<std::int64_t> out;
        for (const auto& server : monitor->servers()) out.push_back(server.port);
        return out;
    }

    VirtualScheduler clock;
    InlineQueueFactory queues;
    FakeDevServerPlatform platform;
    std::unique_ptr<DevServerMonitor> monitor;
};

TEST_F(DevServerMonitorTest, ScansNothingUnwatchedThenAtOnceForTheFirstWatcherAndEveryThreeSeconds) {
    make();
    clock.advance(30);
    EXPECT_EQ(platform.listings, 0);
    monitor->setActive(true);
    clock.runUntilIdle();
    EXPECT_EQ(platform.listings, 1);
    clock.advance(2.9);
    EXPECT_EQ(platform.listings, 1);
    clock.advance(0.1);
    EXPECT_EQ(platform.listings, 2);

    // Polling stops only when the last watcher leaves.
    monitor->setActive(true);
    monitor->setActive(false);
    EXPECT_TRUE(monitor->isPolling());
    monitor->setActive(false);
    clock.advance(30);
    EXPECT_EQ(platform.listings, 2);
}

TEST_F(DevServerMonitorTest, OwnProcessAndDuplicatePortsAreListedOnceAndAFailedListingEmptiesTheList) {
    testing::LogCapture log;
    platform.add(999, "vantrelle", 7000, {"vantrelle", "/usr/bin/vantrelle", "/"});
    platform.sockets.push_back({4100, "node", 5173});  // IPv6 twin of the same listener
    make().refresh();
    clock.runUntilIdle();
    EXPECT_EQ(ports(), (std::vector<std::int64_t>{5173, 8000}));

    platform.failing = true;
    monitor->refresh();
    clock.runUntilIdle();
    EXPECT_TRUE(monitor->servers().empty());
    EXPECT_NE(log.text().find("listing failed"), std::string::npos);
}

TEST_F(DevServerMonitorTest, StopAsksPolitelyAndForcesOnlyTheSameProcessStillListeningAfterThreeSeconds) {
    using enum ProcessSignal;
    platform.add(4300, "python3", 9000, {"python3 stubborn.py", "/usr/bin/python3", "/w/s"}, false);
    make().refresh();
    clock.runUntilIdle();
    const auto servers = monitor->servers();
    for (const auto& server : servers) monitor->stop(server);
    EXPECT_TRUE(monitor->stopping().contains(5173));
    platform.add(4400, "python3", 8000, {"python3 b.py", "/usr/bin/python3", "/w/api"});  // a new server

    // The list shows the ended server gone only at the refresh after the stop.
    clock.advance(0.59);
    EXPECT_EQ(ports(), (std::vector<std::int64_t>{5173, 8000, 9000}));
    clock.advance(0.01);
    EXPECT_EQ(ports(), (std::vector<std::int64_t>{8000, 9000}));
    EXPECT_FALSE(monitor->stopping().contains(5173));

    // Neither the ended server nor the new one on its port is forced; the stubborn one is, at 3 s.
    using Signals = std::vector<std::pair<pid_t, ProcessSignal>>;
    const Signals polite{{4100, terminate}, {4200, terminate}, {4300, terminate}};
    clock.advance(2.39);
    EXPECT_EQ(platform.signals, polite);
    clock.advance(0.01);
    EXPECT_EQ(platform.signals.back(), std::make_pair(pid_t{4300}, kill));
    clock.advance(0.6);
    EXPECT_EQ(ports(), (std::vector<std::int64_t>{8000}));
    clock.advance(5);
    EXPECT_EQ(platform.signals.size(), 4U);
}

TEST_F(DevServerMonitorTest, DockerDemoAndOwnProcessAreNeverSignalled) {
    make();
    monitor->stop({8080, 4500, "docker-proxy", "", std::string("Docker")});
    monitor->stop({7000, 999, "vantrelle", "", std::nullopt});
    clock.advance(5);
    make(/*demo=*/true).stop(DevServerMonitor::demoServers().front());
    clock.advance(5);
    EXPECT_TRUE(platform.signals.empty());
}

TEST(DevServerReport, JsonKeepsUnknownKindsAsNullAndTextAlignsColumns) {
    const std::vector<DevServer> servers{{5173, 41, "node", "/w/shop/", std::string("Vite")},
                                         {9000, 4242, "srv", "", std::nullopt}};
    const auto json = nlohmann::json::parse(devServersJson(servers));
    ASSERT_EQ(json.size(), 2U);
    EXPECT_EQ(json[0]["project"], "shop");
    EXPECT_TRUE(json[1]["kind"].is_null());
    EXPECT_EQ(json[1]["url"], "http://localhost:9000/");
    EXPECT_EQ(devServersText(servers),
              "PORT  KIND    PROJECT  PID   URL\n"
              "5173  Vite    shop     41    http://localhost:5173/\n"
              "9000  Server  srv      4242  http://localhost:9000/\n");
    EXPECT_EQ(devServersText({}), "No development servers are listening.\n");
}

TEST(DevServerRules, TheFirstMatchingKindWins) {
    const struct {
        const char* command;
        const char* args;
        std::optional<std::string> kind;
    } rows[] = {
        {"node", "node /app/node_modules/.bin/next dev", "Next.js"},
        {"python3", "python3 -m http.server 8000", "Python"},
        {"python3", "python3 manage.py runserver", "Django"},
        {"NODE", "SERVER.JS", "Node"},
        {"myserver", "./myserver --port 9000", std::nullopt},
    };
    for (const auto& row : rows) EXPECT_EQ(detectDevServerKind(row.command, row.args), row.kind) << row.args;
}

TEST(DevServerRules, DecidesLikeADeveloperWould) {
    const struct {
        const char* name;
        const char* command;
        const char* args;
        const char* path;
        std::int64_t port;
        bool accepted;
    } rows[] = {
        {"tool server", "node", "node /x/mcp-server-files/index.js", "/usr/bin/node", 3000, false},
        {"docker even ephemeral", "docker-proxy", "docker-proxy", "/usr/sbin/docker-proxy", 52000, true},
        {"node high bare", "node", "node /tmp/app.js", "/usr/bin/node", 52000, false},
        {"vite high", "node", "node vite", "/usr/bin/node", 52000, true},
        {"unknown high", "myserver", "./myserver", "/home/ada/bin/myserver", 52000, false},
        {"unknown low", "myserver", "./myserver", "/home/ada/bin/myserver", 9000, true},
        {"edge of range", "node", "node a.js", "/usr/bin/node", 49151, true},
        {"agent or editor", "claude", "claude", "/home/ada/.local/bin/claude", 3000, false},
        {"system daemon", "cupsd", "/usr/sbin/cupsd -l", "/usr/sbin/cupsd", 631, false},
        {"bundled app", "slack", "slack", "/opt/Slack/slack", 8000, false},
        {"home app refused", "tool", "tool", "/home/ada/Applications/Tool/tool", 8000, false},
        {"runtime in opt kept", "node", "node srv.js", "/opt/node/bin/node", 8000, true},
    };
    for (const auto& row : rows) {
        const auto kind = detectDevServerKind(row.command, row.args);
        EXPECT_EQ(isDevProcess(row.command, row.args, row.path, kind, row.port, "/home/ada"), row.accepted)
            << row.name;
    }
}

TEST(LsofListing, TakesPidAndCommandLastSeenForEachPortedNameAndSkipsGarbage) {
    const std::string text =
        "p101\ncnode\nf23\nn127.0.0.1:5173\nf24\nn[::1]:5173\np202\ncpython3\nn*:8000\n"
        "nno-port-here\nn*:http\np\ncbroken\nn*:9000\n";
    const std::vector<ListeningSocket> expected{
        {101, "node", 5173}, {101, "node", 5173}, {202, "python3", 8000}, {0, "broken", 9000}};
    EXPECT_EQ(parseLsofListing(text), expected);
    EXPECT_TRUE(parseLsofListing("").empty());
    EXPECT_TRUE(parseLsofListing("\n\n\xff\x01zz\nn:\nn:99999999\n").empty());
}

TEST(ProcNetTcp, KeepsListeningRowsWithPortAndInode) {
    const std::string text =
        "  sl  local_address rem_address   st tx_queue rx_queue tr tm->when retrnsmt   uid  timeout inode\n"
        "   0: 0100007F:1F40 00000000:0000 0A 00000000:00000000 00:00000000 00000000  1000  0 4242 1 0\n"
        "   1: 0100007F:D584 507100CB:0050 01 00000000:00000000 03:00000824 00000000  1000  0 999 3 0\n"
        "   2: 00000000000000000000000001000000:1435 00000000000000000000000000000000:0000 0A 0:0 0:0 0 1 0 "
        "77\n"
        "   3: truncated\n";
    const std::vector<KernelListener> expected{{8000, 4242}, {5173, 77}};
    EXPECT_EQ(parseProcNetTcp(text), expected);
}

}  // namespace
}  // namespace vantrelle
