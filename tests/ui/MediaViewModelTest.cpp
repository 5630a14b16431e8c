#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>

#include "GuiApplication.h"
#include "MediaViewModel.h"
#include "fakes/AppBasics.h"
#include "fakes/FakeMediaProvider.h"

namespace vantrelle::testing {
namespace {

class RecordingPlayerApps final : public PlayerApps {
public:
    [[nodiscard]] std::optional<std::string> installedName(MediaSource source) const override {
        return source == MediaSource::spotify ? std::optional<std::string>("Spotify") : std::nullopt;
    }
    void open(MediaSource source) override { opened.push_back(source); }
    std::vector<MediaSource> opened;
};

NowPlayingTrack song(double position, double duration) {
    NowPlayingTrack track;
    track.title = "Song";
    track.artist = "Artist";
    track.isPlaying = true;
    track.position = position;
    track.duration = duration;
    track.source = MediaSource::music;
    track.artworkKey = "mpv:/1:Song";
    return track;
}

std::shared_ptr<const std::vector<std::uint8_t>> pngBytes(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return std::make_shared<const std::vector<std::uint8_t>>(data.begin(), data.end());
}

class MediaViewModelTest : public ::testing::Test, protected AppBasics {
protected:
    explicit MediaViewModelTest(bool demo = false) : controller({provider, scheduler, activities, demo}) {
        guiApplication();
    }

    FakeMediaProvider provider;
    MediaController controller;
    RecordingPlayerApps apps;
};

TEST_F(MediaViewModelTest, ShowsTheTrackItsTimesAndSeeksByFraction) {
    MediaViewModel view(controller, apps);
    int changed = 0;
    QObject::connect(&view, &MediaViewModel::trackChanged, &view, [&] { ++changed; });
    provider.play(song(75, 300));
    controller.refresh();
    EXPECT_EQ(view.title(), QStringLiteral("Song"));
    EXPECT_DOUBLE_EQ(view.progress(), 0.25);
    EXPECT_EQ(view.positionText(), QStringLiteral("1:15"));
    EXPECT_GE(changed, 1);

    view.seekTo(0.5);
    ASSERT_FALSE(provider.commands.empty());
    EXPECT_EQ(provider.commands.back().second, "set player position to 150.0");
    view.seekTo(7);  // past the end of the bar
    EXPECT_EQ(provider.commands.back().second, "set player position to 300.0");
}

TEST_F(MediaViewModelTest, ArtworkGetsANewUrlAndTheProviderDecodesIt) {
    MediaViewModel view(controller, apps);
    std::unique_ptr<MediaArtworkImageProvider> images(view.makeImageProvider());
    provider.play(song(0, 10));
    controller.refresh();
    EXPECT_TRUE(view.artworkUrl().isEmpty());
    provider.answerArtwork(Artwork{pngBytes(30, 20), 30, 20});
    const QString url = view.artworkUrl();
    EXPECT_TRUE(url.startsWith(QStringLiteral("image://media/")));
    QSize size;
    const QImage image = images->requestImage(url.mid(14), &size, QSize());
    EXPECT_EQ(image.size(), QSize(30, 20));
    EXPECT_EQ(size, QSize(30, 20));
}

TEST_F(MediaViewModelTest, OffersToOpenAnInstalledPlayerOnlyWhileNothingPlays) {
    MediaViewModel view(controller, apps);
    EXPECT_EQ(view.openableName(), QStringLiteral("Spotify"));
    view.openPlayer();
    EXPECT_EQ(apps.opened, std::vector{MediaSource::spotify});

    provider.play(song(0, 10));
    controller.refresh();
    EXPECT_TRUE(view.openableName().isEmpty());
}

struct MediaViewModelDemo : MediaViewModelTest {
    MediaViewModelDemo() : MediaViewModelTest(true) {}
};

TEST_F(MediaViewModelDemo, DrawsTheDemoCover) {
    controller.start();
    MediaViewModel view(controller, apps);
    std::unique_ptr<MediaArtworkImageProvider> images(view.makeImageProvider());
    EXPECT_EQ(images->requestImage(QStringLiteral("0"), nullptr, QSize()).size(), QSize(600, 600));
}

}  // namespace
}  // namespace vantrelle::testing
