#include <gtest/gtest.h>

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

struct MediaViewModelTest : ::testing::Test, AppBasics {
    QGuiApplication& app = guiApplication();
    FakeMediaProvider provider;
    MediaController controller{{provider, scheduler, activities, false}};
    RecordingPlayerApps apps;
    MediaViewModel view{controller, apps};
};

TEST_F(MediaViewModelTest, OffersAPlayerUntilATrackPlaysThenShowsItsTimesAndSeeks) {
    view.openPlayer();  // nothing plays: the installed player is offered
    EXPECT_EQ(apps.opened, std::vector{MediaSource::spotify});
    NowPlayingTrack track;
    track.isPlaying = true;
    track.duration = 300;
    track.position = 75;
    provider.play(track);
    controller.refresh();
    EXPECT_TRUE(view.openableName().isEmpty());
    EXPECT_DOUBLE_EQ(view.progress(), 0.25);
    EXPECT_EQ(view.positionText(), QStringLiteral("1:15"));
    view.seekTo(7);  // past the end of the bar
    ASSERT_FALSE(provider.commands.empty());
    EXPECT_EQ(provider.commands.back().second, "set player position to 300.0");
}

}  // namespace
}  // namespace vantrelle::testing
