#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "fakes/FakeDevServerPlatform.h"
#include "fakes/LogCapture.h"
#include "monitors/DevServerMonitor.h"
#include "monitors/DevServerReport.h"
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
    EXPECT_TRUE(monitor->servers().empty());
    monitor->setActive(true);
    clock.runUntilIdle();
    EXPECT_EQ(platform.listings, 1);
    EXPECT_EQ(ports(), (std::vector<std::int64_t>{5173, 8000}));
    EXPECT_EQ(monitor->lastScan(), clock.now());
    clock.advance(2.9);
    EXPECT_EQ(platform.listings, 1);
    clock.advance(0.1);
    EXPECT_EQ(platform.listings, 2);

    // Polling stops only when the last watcher leaves.
    monitor->setActive(true);
    monitor->setActive(false);
    EXPECT_TRUE(monitor->isPolling());
    monitor->setActive(false);
    EXPECT_FALSE(monitor->isPolling());
    clock.advance(30);
    EXPECT_EQ(platform.listings, 2);
}

TEST_F(DevServerMonitorTest, OwnProcessAndDuplicatePortsAreListedOnce) {
    platform.add(999, "vantrelle", 7000, {"vantrelle", "/usr/bin/vantrelle", "/"});
    platform.sockets.push_back({4100, "node", 5173});  // IPv6 twin of the same listener
    make().refresh();
    clock.runUntilIdle();
    EXPECT_EQ(ports(), (std::vector<std::int64_t>{5173, 8000}));
    EXPECT_EQ(monitor->servers().front().project(), "shop");
}

TEST_F(DevServerMonitorTest, FailedListingGivesAnEmptyListAndALogLine) {
    testing::LogCapture log;
    platform.failing = true;
    make().refresh();
    clock.runUntilIdle();
    EXPECT_TRUE(monitor->servers().empty());
    EXPECT_NE(log.text().find("devservers: listing failed: no table"), std::string::npos);
}

TEST_F(DevServerMonitorTest, StopAsksPolitelyAndTheRowGoesAfterTheRefresh) {
    testing::LogCapture log;
    make().refresh();
    clock.runUntilIdle();
    monitor->stop(monitor->servers().front());
    EXPECT_TRUE(monitor->stopping().contains(5173));
    ASSERT_EQ(platform.signals.size(), 1U);
    EXPECT_EQ(platform.signals[0], std::make_pair(pid_t{4100}, ProcessSignal::terminate));
    clock.advance(0.59);
    EXPECT_EQ(ports().front(), 5173);
    clock.advance(0.01);
    EXPECT_EQ(ports(), (std::vector<std::int64_t>{8000}));
    EXPECT_FALSE(monitor->stopping().contains(5173));
    clock.advance(5);
    EXPECT_EQ(platform.signals.size(), 1U) << "a server that ended is not killed";
    EXPECT_NE(log.text().find("devservers: asked node (4100) on :5173 to stop"), std::string::npos);
}

TEST_F(DevServerMonitorTest, AProcessIgnoringTerminateIsKilledAfterThreeSeconds) {
    testing::LogCapture log;
    platform.add(4300, "python3", 9000, {"python3 stubborn.py", "/usr/bin/python3", "/w/s"}, false);
    make().refresh();
    clock.runUntilIdle();
    monitor->stop(monitor->servers().back());
    clock.advance(2.99);
    EXPECT_EQ(platform.signals.size(), 1U);
    EXPECT_EQ(ports().back(), 9000) << "still listed after the first refresh";
    clock.advance(0.01);
    ASSERT_EQ(platform.signals.size(), 2U);
    EXPECT_EQ(platform.signals[1], std::make_pair(pid_t{4300}, ProcessSignal::kill));
    EXPECT_NE(log.text().find("devservers: forced python3 to stop"), std::string::npos);
    clock.advance(0.6);
    EXPECT_EQ(ports(), (std::vector<std::int64_t>{5173, 8000}));
}

TEST_F(DevServerMonitorTest, ANewProcessOnTheSamePortIsNotKilled) {
    platform.add(4300, "python3", 9000, {"python3 a.py", "/usr/bin/python3", "/w/s"});
    make().refresh();
    clock.runUntilIdle();
    monitor->stop(monitor->servers().back());
    platform.add(4400, "python3", 9000, {"python3 b.py", "/usr/bin/python3", "/w/s"});
    clock.advance(3);
    EXPECT_EQ(platform.signals.size(), 1U);
}

TEST_F(DevServerMonitorTest, DockerDemoAndOwnProcessAreNeverSignalled) {
    make();
    monitor->stop({8080, 4500, "docker-proxy", "", std::string("Docker")});
    monitor->stop({7000, 999, "vantrelle", "", std::nullopt});
    clock.advance(5);
    EXPECT_TRUE(platform.signals.empty());
    EXPECT_TRUE(monitor->stopping().empty());

    make(/*demo=*/true).refresh();
    clock.runUntilIdle();
    EXPECT_EQ(monitor->servers(), DevServerMonitor::demoServers());
    monitor->stop(monitor->servers().front());
    clock.advance(5);
    EXPECT_TRUE(platform.signals.empty());
}

TEST_F(DevServerMonitorTest, StopPortHookStopsThatPortOrSaysNothingIsThere) {
    testing::LogCapture log;
    make().stopPort(8000);
    clock.runUntilIdle();
    ASSERT_EQ(platform.signals.size(), 1U);
    EXPECT_EQ(platform.signals[0].first, 4200);
    monitor->stopPort(1234);
    clock.runUntilIdle();
    EXPECT_NE(log.text().find("devservers: nothing on :1234"), std::string::npos);
}

}  // namespace
}  // namespace vantrelle

namespace vantrelle {
namespace {

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

}  // namespace
}  // namespace vantrelle
