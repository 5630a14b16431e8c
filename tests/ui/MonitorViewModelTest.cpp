#include <gtest/gtest.h>

#include <QFile>

#include "DevServersViewModel.h"
#include "GuiApplication.h"
#include "ScreenTimeViewModel.h"
#include "ViewModelFixture.h"
#include "WrappedViewModel.h"
#include "fakes/FakeDevServerPlatform.h"
#include "fakes/FakeScreenActivity.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"

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
    EXPECT_EQ(role(*view.servers(), 0, "kind").toString(), QStringLiteral("Vite"));
    EXPECT_EQ(role(*view.servers(), 1, "isDocker").toBool(), true);
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
    ASSERT_EQ(view.apps()->count(), 9);
    EXPECT_EQ(role(*view.apps(), 0, "name").toString(), QStringLiteral("Firefox"));
    EXPECT_EQ(role(*view.apps(), 0, "duration").toString(), QStringLiteral("1 h 32 m"));
    EXPECT_DOUBLE_EQ(role(*view.apps(), 0, "fraction").toDouble(), 1.0);
    EXPECT_EQ(role(*view.categories(), 0, "key").toString(), QStringLiteral("browsing"));
    EXPECT_EQ(role(*view.categories(), 0, "name").toString(), QStringLiteral("Browsing"));
    EXPECT_EQ(view.averageSession(), QStringLiteral("11 m"));
}

TEST_F(MonitorViewModels, WrappedSwitchesPeriodsAndSavesThePeriodShownAsPng) {
    std::vector<WrappedPeriod> made;
    WrappedViewModel view(
        [&](WrappedPeriod period) {
            made.push_back(period);
            WrappedSources sources;
            sources.demoMode = true;
            return WrappedSummary::make(period, Date{1'800'000'000.0}, sources);
        },
        QString::fromStdString(dir.path().string()));
    EXPECT_EQ(view.focusBlocks(), QStringLiteral("17"));
    view.setPeriod(3);
    EXPECT_EQ(view.focusBlocks(), QStringLiteral("64"));
    EXPECT_EQ(view.tokens(), QStringLiteral("312.0M"));
    EXPECT_EQ(made, (std::vector<WrappedPeriod>{WrappedPeriod::lastWeek, WrappedPeriod::thisMonth}));
    const QString file = view.saveImage();
    ASSERT_FALSE(file.isEmpty());
    QFile png(file);
    ASSERT_TRUE(png.open(QIODevice::ReadOnly));
    EXPECT_EQ(png.read(8), QByteArray("\x89PNG\r\n\x1a\n", 8));
    EXPECT_TRUE(file.endsWith(QStringLiteral("thisMonth.png")));
}

}  // namespace
}  // namespace vantrelle::testing
