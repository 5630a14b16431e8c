#include <gtest/gtest.h>

#include "catalog/AppSettings.h"
#include "fakes/AppBasics.h"
#include "fakes/FakeFileWatcher.h"
#include "fakes/FakeImageCodec.h"
#include "fakes/TempDir.h"
#include "files/DownloadsWatcher.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::TempDir;

class DownloadsWatcherTest : public ::testing::Test, protected testing::AppBasics {
protected:
    static fs::path made(const fs::path& folder) {
        fs::create_directories(folder);
        return folder;
    }

    void finishDownload(const std::string& name) {
        dir.write("Downloads/" + name, "data");
        watcher.wakeFolder();
        scheduler.advance(1.5);
    }

    TempDir dir;
    InlineQueueFactory queues;
    testing::FakeFileWatcher watcher;
    testing::FakeImageCodec codec;
    ImageConverter converter{codec, std::nullopt, dir / "Converted"};
    ShelfStore shelf{{dir / "shelf.json", scheduler, scheduler, queues, activities, converter, false, {}}};
    DownloadsWatcher downloads{
        {{made(dir / "Downloads"), scheduler, scheduler, queues, watcher}, settings, activities, shelf}};
};

TEST_F(DownloadsWatcherTest, ARunningDownloadShowsInTheNotchUntilItsMarkerGoes) {
    downloads.start();
    downloads.start();  // idempotent: one watch, one first scan
    scheduler.runUntilIdle();
    EXPECT_EQ(downloads.engine().scansRun(), 1u);
    dir.write("Downloads/song.flac.part", "12");
    watcher.wakeFolder();
    scheduler.advance(0.3);
    EXPECT_EQ(activities.activity(LiveActivityCenter::Source::downloads),
              (LiveActivity{LiveActivity::Download{"song.flac", std::nullopt}}));
    fs::remove(dir / "Downloads/song.flac.part");
    watcher.wakeFolder();
    scheduler.advance(0.3);
    EXPECT_EQ(activities.activity(LiveActivityCenter::Source::downloads), std::nullopt);
}

TEST_F(DownloadsWatcherTest, FinishedFilesFlashLandOnTheShelfWhenSetAndTheLastTenAreListed) {
    downloads.start();
    scheduler.runUntilIdle();
    finishDownload("report.pdf");
    EXPECT_EQ(activities.current(), (LiveActivity{LiveActivity::Download{"report.pdf", 1.0}}));
    EXPECT_EQ(shelf.items().size(), 1u);

    settings.setAddDownloadsToShelf(false);
    for (int i = 0; i < 10; ++i) finishDownload("file" + std::to_string(i));
    EXPECT_EQ(shelf.items().size(), 1u);
    ASSERT_EQ(downloads.recentlyFinished().size(), 10u);
    EXPECT_EQ(downloads.recentlyFinished().back(), dir / "Downloads/file0")
        << "the eleventh pushed out the oldest";
}

}  // namespace
}  // namespace vantrelle
