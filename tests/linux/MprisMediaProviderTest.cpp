#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <cmath>

#include "FakeMprisPlayer.h"
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

using testing::FakeMprisPlayer;

bool installed(const char* program) {
    return !QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty();
}

QByteArray png(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

// The provider and the controller on a private bus. Time is virtual: the test turns the Qt event loop
// for the bus and moves the controller's clock along with it, so polls and command follow-ups run.
class MprisMediaProviderTest : public testing::EventLoopTest {
protected:
    void SetUp() override {
        if (!installed("dbus-daemon")) GTEST_SKIP() << "dbus-daemon is not installed";
        ASSERT_FALSE(bus.address().isEmpty());
        connection = QDBusConnection::connectToBus(bus.address(), QStringLiteral("vantrelle-under-test"));
        ASSERT_TRUE(connection.isConnected());
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
    bool waitUntil(Done done, int limitMs = 30000) {
        return testing::spinUntil(
            [&] {
                scheduler.advance(0.05);
                return done();
            },
            limitMs);
    }
    std::string title() const { return controller->track() ? controller->track()->title : std::string(); }
    bool playing() const { return controller->track() && controller->track()->isPlaying; }
    const std::optional<LiveActivity>& activity() const {
        return activities.activity(LiveActivityCenter::Source::media);
    }
    // Where playerctl, a client of the same bus, says mpv is.
    double mpvPosition() {
        QProcess process;
        process.setEnvironment(bus.environment());
        process.start(QStringLiteral("playerctl"),
                      {QStringLiteral("-p"), QStringLiteral("mpv"), QStringLiteral("position")});
        process.waitForFinished(5000);
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed().toDouble();
    }

    testing::PrivateSessionBus bus;
    QDBusConnection connection{QString()};
    VirtualScheduler scheduler;
    LiveActivityCenter activities{scheduler};
    ThreadQueueFactory queues;
    testing::FakeHttpClient http{scheduler};
    QtImageDecoder decoder;
    std::unique_ptr<MprisMediaProvider> provider;
    std::unique_ptr<MediaController> controller;
};

TEST_F(MprisMediaProviderTest, NoPlayerOnTheBusMeansNoCallsAndNoActivity) {
    controller->setActive(true);
    ASSERT_TRUE(waitUntil([&] { return scheduler.now() - Date{1'800'000'000.0} > 10; }));
    controller->playPause();
    controller->seek(3);
    EXPECT_EQ(provider->playerCalls(), 0u);
    EXPECT_FALSE(controller->track());
    EXPECT_FALSE(activity());
}

TEST_F(MprisMediaProviderTest, FollowsMpvThroughPlayPauseSeekNextAndQuit) {
    if (!installed("mpv") || !installed("sox") || !installed("playerctl"))
        GTEST_SKIP() << "mpv, sox or playerctl is not installed";
    testing::TempDir dir;
    for (const char* name : {"first.wav", "second.wav"}) {
        ASSERT_EQ(QProcess::execute(QStringLiteral("sox"),
                                    {QStringLiteral("-n"), QString::fromStdString((dir / name).string()),
                                     QStringLiteral("synth"), QStringLiteral("30"), QStringLiteral("sine"),
                                     QStringLiteral("440")}),
                  0);
    }
    QProcess mpv;
    QStringList env = bus.environment();
    env << QStringLiteral("XDG_CONFIG_HOME=") + QString::fromStdString(dir.path().string());
    mpv.setEnvironment(env);
    mpv.start(QStringLiteral("mpv"),
              {QStringLiteral("--ao=null"), QStringLiteral("--no-video"), QStringLiteral("--idle=no"),
               QStringLiteral("--no-terminal"), QString::fromStdString((dir / "first.wav").string()),
               QString::fromStdString((dir / "second.wav").string())});
    ASSERT_TRUE(mpv.waitForStarted());

    ASSERT_TRUE(waitUntil([&] { return title() == "first.wav" && playing(); })) << title();
    EXPECT_EQ(activity(), (LiveActivity{LiveActivity::Media{"first.wav", "", true}}));
    EXPECT_EQ(controller->playerName(), "mpv");

    controller->playPause();
    ASSERT_TRUE(waitUntil([&] { return controller->track() && !playing(); }));
    EXPECT_EQ(activity(), (LiveActivity{LiveActivity::Media{"first.wav", "", false}}));

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
    ASSERT_TRUE(waitUntil([&] { return !controller->track() && !activity(); }));
}

TEST_F(MprisMediaProviderTest, ArtworkAndTheChoiceBetweenSeveralPlayers) {
    testing::TempDir dir;
    const auto cover = dir / "cover.png";
    {
        QFile file(QString::fromStdString(cover.string()));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(png(40, 30));
    }
    FakeMprisPlayer alpha(bus.address(), QStringLiteral("alpha"));
    alpha.setTrack(QStringLiteral("Alpha"), QStringLiteral("/alpha/1"), 100'000'000,
                   QUrl::fromLocalFile(QString::fromStdString(cover.string())).toString());
    alpha.setStatus(QStringLiteral("Paused"));
    ASSERT_TRUE(alpha.start());
    ASSERT_TRUE(waitUntil([&] { return title() == "Alpha" && controller->artwork(); })) << title();
    EXPECT_EQ(controller->artwork()->width, 40);
    EXPECT_EQ(controller->artwork()->height, 30);
    EXPECT_EQ(controller->playerName(), "alpha");

    FakeMprisPlayer beta(bus.address(), QStringLiteral("beta"));
    beta.setTrack(QStringLiteral("Beta"), QStringLiteral("/beta/1"), 100'000'000);
    beta.setStatus(QStringLiteral("Playing"));
    ASSERT_TRUE(beta.start());
    ASSERT_TRUE(waitUntil([&] { return title() == "Beta"; })) << title();

    beta.setStatus(QStringLiteral("Paused"));
    alpha.setStatus(QStringLiteral("Playing"));  // now alpha was active last
    ASSERT_TRUE(waitUntil([&] { return title() == "Alpha" && playing(); })) << title();
    alpha.setStatus(QStringLiteral("Paused"));
    ASSERT_TRUE(waitUntil([&] { return title() == "Alpha" && !playing(); })) << title();

    FakeMprisPlayer spotify(bus.address(), QStringLiteral("spotify"));
    spotify.setTrack(QStringLiteral("Spot"), QStringLiteral("/com/spotify/track/1"), 200'000'000,
                     QStringLiteral("https://images.example/cover"));
    spotify.setStatus(QStringLiteral("Playing"));
    ASSERT_TRUE(spotify.start());
    ASSERT_TRUE(waitUntil([&] { return title() == "Spot" && !http.requests().empty(); })) << title();
    EXPECT_EQ(controller->track()->source, MediaSource::spotify);
    EXPECT_EQ(http.requests().front().url, "https://images.example/cover");
    const QByteArray bytes = png(64, 64);
    http.reply(200, std::string(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    ASSERT_TRUE(waitUntil([&] { return controller->artwork() && controller->artwork()->width == 64; }));

    controller->seek(12.5);
    ASSERT_TRUE(waitUntil([&] { return !spotify.calls().isEmpty(); }));
    EXPECT_EQ(spotify.calls().constFirst(), QStringLiteral("SetPosition /com/spotify/track/1 12500000"));

    spotify.quit();
    ASSERT_TRUE(waitUntil([&] { return title() == "Alpha"; })) << title();
    beta.quit();
    alpha.quit();
    ASSERT_TRUE(waitUntil([&] { return !controller->track() && !activity(); }));
}

}  // namespace
}  // namespace vantrelle
