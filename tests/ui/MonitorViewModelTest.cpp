#include <gtest/gtest.h>

#include "DevServersViewModel.h"
#include "ScreenTimeViewModel.h"
#include "ViewModelFixture.h"
#include "fakes/FakeDevServerPlatform.h"
#include "fakes/FakeScreenActivity.h"

namespace vantrelle::testing {
namespace {

struct MonitorViewModels : ::testing::Test {
    QGuiApplication& app = guiApplication();
    VirtualScheduler clock;
    InlineQueueFactory queues;
    TempDir dir;
};

TEST_F(MonitorViewModels, DevServerRowsFollowTheMonitorAndShowingTwiceWatchesOnce) {
    FakeDevServerPlatform platform;
    platform.add(4100, "node", 5173, {"node vite", "/usr/bin/node", "/w/shop"});
    platform.add(4200, "docker-proxy", 8080, {"docker-proxy -p 8080", "/usr/bin/docker-proxy", ""});
    DevServerMonitor monitor({clock, clock, queues, platform, platform, 1, "/home/ada", false});
    DevServersViewModel view(monitor);

    view.setViewShown(true);
    view.setViewShown(true);  // a view that says it again
    view.setTileShown(true);
    clock.runUntilIdle();
    ASSERT_EQ(view.servers()->count(), 2);
    EXPECT_EQ(view.summary(), QStringLiteral("2 servers running"));

    view.stop(5173);
    EXPECT_TRUE(role(*view.servers(), 0, "stopping").toBool());
    view.setViewShown(false);
    EXPECT_TRUE(monitor.isPolling()) << "the tile still shows";
    view.setTileShown(false);
    EXPECT_FALSE(monitor.isPolling());
}

TEST_F(MonitorViewModels, ScreenTimeBarsAreScaledToTheLongestApp) {
    FakeScreenActivity activity;
    ScreenTimeTracker tracker({clock, clock, activity, dir / "screentime", /*demoMode=*/true});
    tracker.start();
    ScreenTimeViewModel view(tracker);
    ASSERT_GT(view.apps()->count(), 1);
    EXPECT_EQ(role(*view.apps(), 0, "duration").toString(), QStringLiteral("1 h 32 m"));
    EXPECT_DOUBLE_EQ(role(*view.apps(), 0, "fraction").toDouble(), 1.0);
    EXPECT_LT(role(*view.apps(), 1, "fraction").toDouble(), 1.0);
}

}  // namespace
}  // namespace vantrelle::testing
