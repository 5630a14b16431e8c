#include <gtest/gtest.h>

#include "fakes/FakeMediaProvider.h"
#include "fakes/LogCapture.h"
#include "fakes/LogMessages.h"
#include "media/MediaController.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

using testing::FakeMediaProvider;

NowPlayingTrack track(MediaSource source, const std::string& title, bool playing, double position = 10,
                      double duration = 200) {
    const std::string key = std::string(rawName(source)) + ":" + title;
    return {title, "Artist", "Album", playing, duration, position, source, key, std::nullopt};
}

LiveActivity media(const std::string& title, bool playing) {
    return LiveActivity{LiveActivity::Media{title, "Artist", playing}};
}

class MediaControllerTest : public ::testing::Test {
protected:
    const std::optional<LiveActivity>& activity() const {
        return activities.activity(LiveActivityCenter::Source::media);
    }
    std::string title() const { return controller.track() ? controller.track()->title : "<none>"; }

    VirtualScheduler scheduler;
    LiveActivityCenter activities{scheduler};
    FakeMediaProvider provider;
    MediaController controller{{provider, scheduler, activities, false}};
};

TEST_F(MediaControllerTest, ChoosesThePlayerThatCounts) {
    struct Row {
        const char* name;
        bool musicPlaying;
        bool spotifyPlaying;
        std::optional<MediaSource> playedBefore;  // which player played in an earlier poll
        const char* expected;
    };
    const Row rows[] = {
        {"neither known: Music by order", false, false, std::nullopt, "M"},
        {"both paused: the one that last played", false, false, MediaSource::spotify, "S"},
        {"both paused, Music last", false, false, MediaSource::music, "M"},
        {"Spotify playing beats Music paused", false, true, MediaSource::music, "S"},
        {"both playing: Music by order", true, true, MediaSource::spotify, "M"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        VirtualScheduler time;
        LiveActivityCenter center{time};
        FakeMediaProvider players;
        MediaController media{{players, time, center, false}};
        if (row.playedBefore) {
            players.play(track(*row.playedBefore, "before", true));
            media.refresh();
        }
        players.play(track(MediaSource::music, "M", row.musicPlaying));
        players.play(track(MediaSource::spotify, "S", row.spotifyPlaying));
        media.refresh();
        ASSERT_TRUE(media.track());
        EXPECT_EQ(media.track()->title, row.expected);
    }
}

TEST_F(MediaControllerTest, NoPlayerRunningAsksNobodyAndCommandsGoNowhere) {
    testing::LogCapture log;
    controller.start();
    scheduler.advance(30);
    EXPECT_TRUE(provider.stateQueries.empty());
    EXPECT_FALSE(controller.track());
    EXPECT_FALSE(activity());
    controller.playPause();
    controller.nextTrack();
    provider.player(MediaSource::music).running = true;  // running, but no track known yet
    controller.seek(12);
    EXPECT_TRUE(provider.commands.empty());
    EXPECT_TRUE(testing::logMessages(log).empty());
}

TEST_F(MediaControllerTest, AsksRunningPlayersOneAfterTheOtherAndDropsAPollDuringAPoll) {
    provider.holdStates = true;
    provider.play(track(MediaSource::music, "M", false));
    provider.play(track(MediaSource::spotify, "S", true));
    controller.refresh();
    controller.refresh();  // dropped: the first poll is still asking
    ASSERT_EQ(provider.stateQueries, std::vector{MediaSource::music});
    provider.releaseState();
    ASSERT_EQ(provider.stateQueries, (std::vector{MediaSource::music, MediaSource::spotify}));
    provider.releaseState();
    EXPECT_EQ(title(), "S");
    EXPECT_FALSE(controller.isPolling());
    controller.refresh();
    EXPECT_EQ(provider.stateQueries.size(), 3u);
}

TEST_F(MediaControllerTest, PollsEveryFiveSecondsInTheBackgroundAndEverySecondWhileShown) {
    provider.play(track(MediaSource::music, "M", true));
    controller.start();
    EXPECT_EQ(provider.stateQueries.size(), 1u);
    scheduler.advance(4.9);
    EXPECT_EQ(provider.stateQueries.size(), 1u);
    scheduler.advance(0.1);
    EXPECT_EQ(provider.stateQueries.size(), 2u);

    controller.setActive(true);  // asks at once
    EXPECT_EQ(provider.stateQueries.size(), 3u);
    scheduler.advance(3);
    EXPECT_EQ(provider.stateQueries.size(), 6u);

    controller.setActive(false);
    scheduler.advance(4.9);
    EXPECT_EQ(provider.stateQueries.size(), 6u);
    scheduler.advance(0.1);
    EXPECT_EQ(provider.stateQueries.size(), 7u);
}

TEST_F(MediaControllerTest, PlayerSignalsAskAtOnce) {
    controller.start();
    provider.play(track(MediaSource::spotify, "S", true));
    provider.stateMayHaveChanged.emit();
    scheduler.runUntilIdle();
    EXPECT_EQ(title(), "S");

    provider.player(MediaSource::spotify) = {};
    provider.playerQuit.emit(MediaSource::spotify);
    scheduler.runUntilIdle();
    EXPECT_FALSE(controller.track());
    EXPECT_FALSE(activity());
}

TEST_F(MediaControllerTest, PositionMovesBetweenPollsOnlyWhileShownAndPlaying) {
    provider.play(track(MediaSource::music, "M", true, 198.6, 199.5));
    controller.refresh();
    scheduler.advance(2);
    EXPECT_DOUBLE_EQ(controller.track()->position, 198.6);  // not shown: no tick

    provider.holdStates = true;  // polls stay unanswered, so only the tick moves the bar
    controller.setActive(true);
    scheduler.advance(0.5);
    EXPECT_DOUBLE_EQ(controller.track()->position, 199.1);
    scheduler.advance(0.5);
    EXPECT_DOUBLE_EQ(controller.track()->position, 199.5);  // held at the end

    provider.play(track(MediaSource::music, "Stream", true, 0, 0));
    provider.releaseState();
    scheduler.advance(1.5);
    EXPECT_DOUBLE_EQ(controller.track()->position, 0) << "no duration holds the position at zero";
}

TEST_F(MediaControllerTest, PausedActivityLeavesTheNotchAfterSixtySeconds) {
    controller.start();
    provider.play(track(MediaSource::music, "M", false));
    controller.refresh();
    EXPECT_EQ(activity(), media("M", false));

    scheduler.advance(59.9);  // polls in between don't restart the delay
    EXPECT_EQ(activity(), media("M", false));
    scheduler.advance(0.1);
    EXPECT_FALSE(activity());
    EXPECT_TRUE(controller.track());

    provider.play(track(MediaSource::music, "M", true));
    scheduler.advance(5);
    EXPECT_EQ(activity(), media("M", true));

    provider.play(track(MediaSource::music, "M", false));
    scheduler.advance(5);
    EXPECT_EQ(activity(), media("M", false));
    scheduler.advance(59.9);
    EXPECT_EQ(activity(), media("M", false));
    scheduler.advance(0.1);
    EXPECT_FALSE(activity());
}

TEST_F(MediaControllerTest, SkipToAnotherPausedTrackKeepsTheFirstDelay) {
    // Polls by hand, so none falls on the moment the delay ends.
    provider.play(track(MediaSource::music, "A", false));
    controller.refresh();
    scheduler.advance(30);
    provider.play(track(MediaSource::music, "B", false));
    controller.refresh();
    EXPECT_EQ(activity(), media("B", false));

    scheduler.advance(29.99);  // the first delay ends at 60 s whatever was skipped to
    EXPECT_EQ(activity(), media("B", false));
    scheduler.advance(0.01);
    EXPECT_FALSE(activity());
    // Only A's key was marked: the next poll shows B again, with a fresh 60 seconds.
    scheduler.advance(1);
    controller.refresh();
    EXPECT_EQ(activity(), media("B", false));
    scheduler.advance(59.9);
    controller.refresh();
    EXPECT_EQ(activity(), media("B", false));
    scheduler.advance(0.1);
    EXPECT_FALSE(activity());
    controller.refresh();
    EXPECT_FALSE(activity());
}

TEST_F(MediaControllerTest, CommandNeverStartsAQuitPlayer) {
    provider.play(track(MediaSource::spotify, "S", true));
    controller.refresh();
    provider.player(MediaSource::spotify).running = false;  // quit, not yet polled
    controller.playPause();
    EXPECT_TRUE(provider.commands.empty());
}

TEST_F(MediaControllerTest, CommandGoesToTheShownPlayerThenAsksAgain) {
    testing::LogCapture log;
    provider.play(track(MediaSource::music, "M", false));
    provider.play(track(MediaSource::spotify, "S", true));
    controller.refresh();
    const auto asked = provider.stateQueries.size();
    controller.nextTrack();
    controller.previousTrack();
    controller.playPause();
    EXPECT_EQ(provider.commands,
              (std::vector<std::pair<MediaSource, std::string>>{{MediaSource::spotify, "next track"},
                                                                {MediaSource::spotify, "previous track"},
                                                                {MediaSource::spotify, "playpause"}}));
    EXPECT_NE(log.text().find("media: command 'playpause' -> Spotify"), std::string::npos);
    scheduler.advance(0.14);
    EXPECT_EQ(provider.stateQueries.size(), asked);
    scheduler.advance(0.01);
    EXPECT_EQ(provider.stateQueries.size(), asked + 2);  // both players, once
}

TEST_F(MediaControllerTest, SeekIsClampedIntoTheTrackAndWaitsForItsLength) {
    struct Row {
        double requested;
        double expected;
        const char* verb;
    };
    const Row rows[] = {
        {500, 200, "set player position to 200.0"},
        {-3, 0, "set player position to 0.0"},
        {42.26, 42.26, "set player position to 42.3"},
    };
    provider.play(track(MediaSource::music, "M", false, 10, 200));
    controller.refresh();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.verb);
        provider.commands.clear();
        controller.seek(row.requested);
        EXPECT_DOUBLE_EQ(controller.track()->position, row.expected);
        ASSERT_EQ(provider.commands.size(), 1u);
        EXPECT_EQ(provider.commands[0].second, row.verb);
    }

    provider.play(track(MediaSource::music, "Just opened", false, 0, 0));
    controller.refresh();
    provider.commands.clear();
    controller.seek(20);
    EXPECT_TRUE(provider.commands.empty()) << "no length yet: a seek would restart the track";
}

TEST_F(MediaControllerTest, ArtworkIsFetchedOnTheFirstFourPollsThenEveryTenth) {
    provider.play(track(MediaSource::music, "M", true));
    std::vector<int> fetchedAt;
    for (int poll = 0; poll < 31; ++poll) {
        const auto before = provider.artworkRequests.size();
        controller.refresh();
        if (provider.artworkRequests.size() > before) {
            fetchedAt.push_back(poll);
            provider.answerArtwork(std::nullopt);
        }
    }
    EXPECT_EQ(fetchedAt, (std::vector{0, 1, 2, 3, 10, 20, 30}));
    EXPECT_FALSE(controller.artwork());
}

TEST_F(MediaControllerTest, ArtworkArrivesForItsTrackOnly) {
    const Artwork cover{std::make_shared<const std::vector<std::uint8_t>>(3, 1), 300, 300};
    provider.play(track(MediaSource::music, "A", true));
    controller.refresh();
    provider.play(track(MediaSource::music, "B", true));
    controller.refresh();  // a new key: A's fetch no longer counts, B's starts
    ASSERT_EQ(provider.artworkRequests, (std::vector<std::string>{"Music:A", "Music:B"}));
    provider.answerArtwork(cover);
    EXPECT_FALSE(controller.artwork());
    provider.answerArtwork(cover);
    EXPECT_EQ(controller.artwork(), cover);

    controller.refresh();  // artwork present: no further fetch
    EXPECT_EQ(provider.artworkRequests.size(), 2u);
    provider.player(MediaSource::music) = {};
    controller.refresh();
    EXPECT_FALSE(controller.artwork());
}

TEST_F(MediaControllerTest, OnlyChangesOfTrackOrStateArePublishedAndLogged) {
    testing::LogCapture log;
    int published = 0;
    auto connection = controller.trackChanged.connect([&] { ++published; });
    provider.play(track(MediaSource::spotify, "S", true, 10));
    controller.refresh();
    controller.refresh();
    EXPECT_EQ(published, 1);
    provider.play(track(MediaSource::spotify, "S", true, 11));
    controller.refresh();
    provider.player(MediaSource::spotify) = {};
    controller.refresh();
    std::vector<std::string> applied;
    for (const auto& message : testing::logMessages(log)) {
        if (message.starts_with("media: apply")) applied.push_back(message);
    }
    EXPECT_EQ(applied, (std::vector<std::string>{"media: apply Spotify 'S' playing=true key=Spotify:S",
                                                 "media: apply nil"}));
}

TEST(MediaControllerDemo, ShowsTheFixedTrackWithoutTimersOrQueries) {
    VirtualScheduler scheduler;
    LiveActivityCenter activities{scheduler};
    FakeMediaProvider provider;
    provider.play(track(MediaSource::spotify, "S", true));
    MediaController controller{{provider, scheduler, activities, true}};
    controller.start();
    EXPECT_EQ(controller.track(), MediaController::demoTrack());
    EXPECT_EQ(activities.current(), (LiveActivity{LiveActivity::Media{"Glass Onion", "Slowdive", true}}));
    ASSERT_TRUE(controller.artwork());
    EXPECT_EQ(controller.artwork()->width, 600);
    EXPECT_EQ(scheduler.pendingCount(), 0u);
    controller.refresh();
    controller.playPause();
    EXPECT_TRUE(provider.stateQueries.empty());
    EXPECT_TRUE(provider.commands.empty());
}

}  // namespace
}  // namespace vantrelle
