#include <gtest/gtest.h>

#include <fstream>

#include "fakes/FakeFileWatcher.h"
#include "fakes/LogCapture.h"
#include "fakes/TempDir.h"
#include "files/DownloadMarkers.h"
#include "files/DownloadsScanEngine.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::FakeFileWatcher;
using testing::TempDir;

class DownloadsEngineTest : public ::testing::Test {
protected:
    void SetUp() override {
        engine.onUpdate = [this](const auto& active, const auto& done) {
            lastActive = active;
            finished.insert(finished.end(), done.begin(), done.end());
        };
    }

    void start() {
        engine.start();
        scheduler.runUntilIdle();
    }
    // What inotify does after each change to the folder's entries.
    void changed() { watcher.wakeFolder(); }
    void append(const std::string& name, std::size_t bytes) {
        std::ofstream(dir / name, std::ios::app) << std::string(bytes, 'x');
    }
    // Nothing waits: no debounce, no follow-up look, no poll.
    [[nodiscard]] bool idle() const {
        return !engine.isPolling() && !engine.hasScanPending() && scheduler.pendingCount() == 0;
    }

    TempDir dir;
    VirtualScheduler scheduler;
    InlineQueueFactory queues;
    FakeFileWatcher watcher;
    DownloadsScanEngine engine{{dir.path(), scheduler, scheduler, queues, watcher}};
    std::vector<InProgressDownload> lastActive;
    std::vector<fs::path> finished;
};

TEST_F(DownloadsEngineTest, AMarkerRenamedToItsFinalNameFinishesOnceAfterSettling) {
    start();
    dir.write("movie.mp4.crdownload", "1234");
    changed();
    scheduler.advance(0.3);
    ASSERT_EQ(lastActive.size(), 1u);
    EXPECT_EQ(lastActive[0].name, "movie.mp4");

    append("movie.mp4.crdownload", 6);  // no folder event: the poll sees it
    scheduler.advance(1.0);
    EXPECT_EQ(lastActive[0].bytes, 10);

    fs::rename(dir / "movie.mp4.crdownload", dir / "movie.mp4");
    changed();
    scheduler.advance(0.3);
    EXPECT_TRUE(lastActive.empty());
    scheduler.advance(0.5);
    EXPECT_TRUE(finished.empty());  // two equal looks are not yet three
    scheduler.advance(0.5);
    EXPECT_EQ(finished, (std::vector<fs::path>{dir / "movie.mp4"}));

    changed();
    scheduler.advance(10.0);
    EXPECT_EQ(finished.size(), 1u);
    EXPECT_TRUE(idle());
}

TEST_F(DownloadsEngineTest, AGrowingFileNeverFinishesWhileItGrows) {
    start();
    dir.write("image.iso", "x");
    changed();
    scheduler.advance(0.3);
    for (int look = 0; look < 20; ++look) {
        append("image.iso", 100);
        scheduler.advance(0.5);
    }
    EXPECT_TRUE(finished.empty());
    scheduler.advance(1.0);
    EXPECT_EQ(finished, (std::vector<fs::path>{dir / "image.iso"}));
}

TEST_F(DownloadsEngineTest, FilesPresentAtStartAreIgnoredForGood) {
    dir.write("old.pdf", "old");
    dir.write("old.part", "half");
    start();
    EXPECT_TRUE(lastActive.size() == 1u && lastActive[0].name == "old");  // a marker still shows
    fs::remove(dir / "old.part");
    append("old.pdf", 10);
    changed();
    scheduler.advance(5.0);
    EXPECT_TRUE(finished.empty());
}

TEST_F(DownloadsEngineTest, ABurstOfEventsGivesOneScanAfterTheLast) {
    start();
    const std::size_t before = engine.scansRun();
    for (int i = 0; i < 1000; ++i) {
        scheduler.advance(0.0002);
        changed();
    }
    scheduler.advance(0.29);
    EXPECT_EQ(engine.scansRun(), before);
    scheduler.advance(0.02);
    EXPECT_EQ(engine.scansRun(), before + 1);
    scheduler.advance(5.0);
    EXPECT_EQ(engine.scansRun(), before + 1);
}

TEST_F(DownloadsEngineTest, FoldersAndFilesDeletedWhileSettlingNeverFinishAndLeaveNoTimer) {
    start();
    dir.write("gone.txt", "x");
    fs::create_directory(dir / "unpacked");
    changed();
    scheduler.advance(0.3);
    fs::remove(dir / "gone.txt");  // without a folder event: the next look drops it
    scheduler.advance(5.0);
    EXPECT_TRUE(finished.empty());
    EXPECT_TRUE(idle());
}

TEST_F(DownloadsEngineTest, AnUnwatchableFolderIsLoggedAndStillScannedOnce) {
    testing::LogCapture log;
    watcher.refuse = true;
    start();
    EXPECT_EQ(engine.scansRun(), 1u);
    EXPECT_FALSE(log.text().empty());
}

TEST(DownloadMarkers, SuffixesInOrderIgnoringCase) {
    const std::vector<std::pair<std::string, std::optional<std::string_view>>> rows{
        {"movie.mp4.crdownload", ".crdownload"},
        {"A.ZIP.PART", ".part"},
        {"notes.txt", std::nullopt},
        {"partial", std::nullopt},
        {".part", ".part"}};
    for (const auto& [name, suffix] : rows) EXPECT_EQ(markerSuffix(name), suffix) << name;
    EXPECT_EQ(markerDisplayName(".part", ".part"), ".part") << "a marker alone keeps its name";
}

TEST(DownloadMarkers, ProgressCountsBytesAndABundlesChildren) {
    TempDir dir;
    dir.write("a.part", std::string(50, 'x'));
    EXPECT_EQ(markerProgress(dir / "a.part").bytes, 50);
    dir.write("b.download/one", std::string(30, 'x'));
    dir.write("b.download/two", std::string(12, 'x'));
    EXPECT_EQ(markerProgress(dir / "b.download").bytes, 42);
    EXPECT_EQ((MarkerProgress{500, 100}.fraction()), 1.0);
    EXPECT_EQ((MarkerProgress{5, 0}.fraction()), std::nullopt);
}

}  // namespace
}  // namespace vantrelle
