#include <gtest/gtest.h>

#include <QFile>

#include "DevServersViewModel.h"
#include "ScreenTimeViewModel.h"
#include "ViewModelFixture.h"
#include "WrappedViewModel.h"
#include "fakes/FakeDevServerPlatform.h"
#include "fakes/FakeScreenActivity.h"

namespace vantrelle::testing {
namespace {

class MonitorViewModels : public ::testing::Test {
protected:
    MonitorViewModels() { guiApplication(); }
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
    EXPECT_EQ(role(*view.servers(), 0, "project").toString(), QStringLiteral("shop"));
    // Without a working folder the row is named after its process.
    EXPECT_EQ(role(*view.servers(), 1, "project").toString(), QStringLiteral("docker-proxy"));
    EXPECT_EQ(view.summary(), QStringLiteral("2 servers running"));

    view.stop(5173);
    EXPECT_TRUE(role(*view.servers(), 0, "stopping").toBool());
    view.setViewShown(false);
    EXPECT_TRUE(monitor.isPolling()) << "the tile still shows";
    view.setTileShown(false);
    EXPECT_FALSE(monitor.isPolling());
}

TEST_F(MonitorViewModels, ScreenTimeListsAppsAndCategoriesWithBars) {
    FakeScreenActivity activity;
    ScreenTimeTracker tracker({clock, clock, activity, dir / "screentime", /*demoMode=*/true});
    tracker.start();
    ScreenTimeViewModel view(tracker);
    ASSERT_GT(view.apps()->count(), 1);
    EXPECT_EQ(role(*view.apps(), 0, "duration").toString(), QStringLiteral("1 h 32 m"));
    EXPECT_DOUBLE_EQ(role(*view.apps(), 0, "fraction").toDouble(), 1.0);  // the longest fills its bar
    EXPECT_LT(role(*view.apps(), 1, "fraction").toDouble(), 1.0);
    EXPECT_EQ(role(*view.categories(), 0, "name").toString(), QStringLiteral("Browsing"));
}

TEST_F(MonitorViewModels, WrappedSwitchesPeriodsAndSavesThePeriodShownAsPng) {
    WrappedViewModel view(
        [](WrappedPeriod period) {
            WrappedSources sources;
            sources.demoMode = true;
            return WrappedSummary::make(period, Date{1'800'000'000.0}, sources);
        },
        QString::fromStdString(dir.path().string()));
    EXPECT_EQ(view.focusBlocks(), QStringLiteral("17"));
    view.setPeriod(3);
    EXPECT_EQ(view.focusBlocks(), QStringLiteral("64"));
    const QString file = view.saveImage();
    ASSERT_FALSE(file.isEmpty());
    QFile png(file);
    ASSERT_TRUE(png.open(QIODevice::ReadOnly));
    EXPECT_EQ(png.read(4), QByteArray("\x89PNG"));
    EXPECT_TRUE(file.endsWith(QStringLiteral("thisMonth.png")));
}

}  // namespace
}  // namespace vantrelle::testing
