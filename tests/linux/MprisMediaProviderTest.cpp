#include <gtest/gtest.h>

#include <QProcess>
#include <QStandardPaths>
#include <cmath>

#include "PrivateSessionBus.h"
#include "QtImageDecoder.h"
#include "TestApplication.h"
#include "ThreadQueue.h"
#include "fakes/FakeHttpClient.h"
#include "fakes/TempDir.h"
#include "media/MediaController.h"
#include "media/MprisMediaProvider.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

bool installed(const char* program) {
    return !QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty();
}

// The provider and the controller on a private bus, with mpv playing two files. Time is virtual: the
// test turns the Qt event loop for the bus and moves the controller's clock along with it, so polls and
// command follow-ups run.
class MprisMediaProviderTest : public testing::PrivateSessionBusTest {
protected:
    void SetUp() override {
        PrivateSessionBusTest::SetUp();
        if (IsSkipped()) return;
        if (!installed("mpv") || !installed("sox") || !installed("playerctl"))
            GTEST_SKIP() << "mpv, sox or playerctl is not installed";
        connection = QDBusConnection::connectToBus(bus->address(), QStringLiteral("vantrelle-under-test"));
        provider = std::make_unique<MprisMediaProvider>(
            MprisMediaProvider::Dependencies{connection, queues, scheduler, http, decoder});
        controller = std::make_unique<MediaController>(
            MediaController::Dependencies{*provider, scheduler, activities, false});
        controller->start();
    }
    void TearDown() override {
        controller.reset();
        provider.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("vantrelle-under-test"));
    }

    template <typename Done>
    bool waitUntil(Done done) {
        return testing::spinUntil(
            [&] {
                scheduler.advance(0.05);
                return done();
            },
            30000);
    }
    std::string title() const { return controller->track() ? controller->track()->title : std::string(); }
    bool playing() const { return controller->track() && controller->track()->isPlaying; }
    // Where playerctl, a client of the same bus, says mpv is.
    double mpvPosition() {
        QProcess process;
        process.setEnvironment(bus->environment());
        process.start(QStringLiteral("playerctl"),
                      {QStringLiteral("-p"), QStringLiteral("mpv"), QStringLiteral("position")});
        process.waitForFinished(5000);
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed().toDouble();
    }

    QDBusConnection connection{QString()};
    VirtualScheduler scheduler;
    LiveActivityCenter activities{scheduler};
    ThreadQueueFactory queues;
    testing::FakeHttpClient http{scheduler};
    QtImageDecoder decoder;
    std::unique_ptr<MprisMediaProvider> provider;
    std::unique_ptr<MediaController> controller;
};

TEST_F(MprisMediaProviderTest, FollowsMpvThroughPlayPauseSeekNextAndQuit) {
    testing::TempDir dir;
    for (const char* name : {"first.wav", "second.wav"}) {
        ASSERT_EQ(QProcess::execute(QStringLiteral("sox"),
                                    {QStringLiteral("-n"), QString::fromStdString((dir / name).string()),
                                     QStringLiteral("synth"), QStringLiteral("30"), QStringLiteral("sine"),
                                     QStringLiteral("440")}),
                  0);
    }
    QProcess mpv;
    QStringList env = bus->environment();
    env << QStringLiteral("XDG_CONFIG_HOME=") + QString::fromStdString(dir.path().string());
    mpv.setEnvironment(env);
    mpv.start(QStringLiteral("mpv"),
              {QStringLiteral("--ao=null"), QStringLiteral("--no-video"), QStringLiteral("--idle=no"),
               QStringLiteral("--no-terminal"), QString::fromStdString((dir / "first.wav").string()),
               QString::fromStdString((dir / "second.wav").string())});
    ASSERT_TRUE(mpv.waitForStarted());

    ASSERT_TRUE(waitUntil([&] { return title() == "first.wav" && playing(); })) << title();
    EXPECT_EQ(activities.current(), (LiveActivity{LiveActivity::Media{"first.wav", "", true}}));
    EXPECT_EQ(controller->playerName(), "mpv");

    controller->playPause();
    ASSERT_TRUE(waitUntil([&] { return controller->track() && !playing(); }));

    // mpv gives the length a moment after the file opens, and a seek is clamped into the known length.
    ASSERT_TRUE(waitUntil([&] { return controller->track() && controller->track()->duration > 0; }));
    controller->seek(20);
    ASSERT_TRUE(waitUntil([&] { return std::abs(mpvPosition() - 20.0) < 0.5; }));
    controller->refresh();
    ASSERT_TRUE(waitUntil([&] { return !controller->isPolling(); }));
    EXPECT_NEAR(controller->track()->position, 20.0, 0.5);

    controller->nextTrack();
    ASSERT_TRUE(waitUntil([&] { return title() == "second.wav"; })) << title();

    mpv.terminate();
    ASSERT_TRUE(mpv.waitForFinished(5000));
    ASSERT_TRUE(waitUntil([&] { return !controller->track() && !activities.current(); }));
}

}  // namespace
}  // namespace vantrelle
