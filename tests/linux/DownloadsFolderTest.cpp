#include <gtest/gtest.h>

#include <QProcess>

#include "InotifyFileWatcher.h"
#include "TestApplication.h"
#include "fakes/TempDir.h"
#include "files/DownloadsScanEngine.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::spinUntil;
using testing::TempDir;

// The downloads engine on a real folder: real inotify events from real writer processes, while the
// engine's own timers run on virtual time, so settling is checked look by look without waiting.
class DownloadsFolderTest : public testing::EventLoopTest {
protected:
    void SetUp() override {
        engine.onUpdate = [this](const auto& active, const auto& done) {
            lastActive = active;
            finished.insert(finished.end(), done.begin(), done.end());
        };
        engine.start();
        scheduler.runUntilIdle();
        ASSERT_TRUE(engine.isWatching());
    }

    // Runs `script` in a shell in the folder, as another program writing there would.
    void writer(const QString& script) {
        QProcess process;
        process.setWorkingDirectory(QString::fromStdString(dir.path().string()));
        process.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), script});
        ASSERT_TRUE(process.waitForFinished(10000));
        ASSERT_EQ(process.exitCode(), 0);
    }
    // Delivers the folder events the writer raised; each arms the debounce on virtual time.
    void deliver() {
        ASSERT_TRUE(spinUntil([this] { return engine.hasScanPending(); }));
        QCoreApplication::processEvents();
    }

    TempDir dir;
    VirtualScheduler scheduler;
    InlineQueueFactory queues;
    InotifyFileWatcher watcher;
    DownloadsScanEngine engine{{dir.path(), scheduler, scheduler, queues, watcher}};
    std::vector<InProgressDownload> lastActive;
    std::vector<fs::path> finished;
};

TEST_F(DownloadsFolderTest, ACrdownloadRenamedToItsNameFinishesOnce) {
    writer(QStringLiteral("head -c 1000 /dev/zero > movie.mp4.crdownload"));
    deliver();
    scheduler.advance(0.3);
    ASSERT_EQ(lastActive.size(), 1u);
    EXPECT_EQ(lastActive[0].name, "movie.mp4");

    writer(QStringLiteral(
        "head -c 1000 /dev/zero >> movie.mp4.crdownload && mv movie.mp4.crdownload movie.mp4"));
    deliver();
    scheduler.advance(1.4);
    EXPECT_TRUE(lastActive.empty());
    EXPECT_EQ(finished, (std::vector<fs::path>{dir / "movie.mp4"}));
}

}  // namespace
}  // namespace vantrelle
