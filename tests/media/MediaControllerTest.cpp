#include <gtest/gtest.h>

#include "fakes/FakeMediaProvider.h"
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
    // Polls asked so far, `seconds` on.
    std::size_t asksAfter(double seconds) {
        scheduler.advance(seconds);
        return provider.stateQueries.size();
    }
    // The activity stays as `shown` for `seconds` more, then leaves the notch.
    void expectShownFor(double seconds, const LiveActivity& shown) {
        scheduler.advance(seconds - 0.01);
        EXPECT_EQ(activity(), shown);
        scheduler.advance(0.01);
        EXPECT_FALSE(activity());
    }

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

TEST_F(MediaControllerTest, CommandsNeverStartAPlayer) {
    controller.start();
    scheduler.advance(30);
    EXPECT_TRUE(provider.stateQueries.empty());
    EXPECT_FALSE(activity());
    controller.playPause();
    provider.player(MediaSource::music).running = true;  // running, but no track known yet
    controller.seek(12);

    provider.play(track(MediaSource::spotify, "S", true));
    controller.refresh();
    provider.player(MediaSource::spotify).running = false;  // quit, not yet polled
    controller.playPause();
    EXPECT_TRUE(provider.commands.empty());
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
    EXPECT_EQ(asksAfter(4.9), 1u);
    EXPECT_EQ(asksAfter(0.1), 2u);
    controller.setActive(true);
    EXPECT_EQ(asksAfter(0), 3u) << "asks at once";
    EXPECT_EQ(asksAfter(3), 6u);
    controller.setActive(false);
    EXPECT_EQ(asksAfter(4.9), 6u);
    EXPECT_EQ(asksAfter(0.1), 7u);
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
    expectShownFor(60, media("M", false));  // polls in between don't restart the delay
    EXPECT_TRUE(controller.track());

    provider.play(track(MediaSource::music, "M", true));
    scheduler.advance(5);
    EXPECT_EQ(activity(), media("M", true));

    provider.play(track(MediaSource::music, "M", false));
    scheduler.advance(5);
    expectShownFor(60, media("M", false));
}

TEST_F(MediaControllerTest, SkipToAnotherPausedTrackKeepsTheFirstDelay) {
    // Polls by hand, so none falls on the moment the delay ends.
    provider.play(track(MediaSource::music, "A", false));
    controller.refresh();
    scheduler.advance(30);
    provider.play(track(MediaSource::music, "B", false));
    controller.refresh();
    EXPECT_EQ(activity(), media("B", false));

    expectShownFor(30, media("B", false));  // the first delay ends at 60 s whatever was skipped to
    // Only A's key was marked: the next poll shows B again, with a fresh 60 seconds.
    scheduler.advance(1);
    controller.refresh();
    expectShownFor(60, media("B", false));
    controller.refresh();
    EXPECT_FALSE(activity());
}

TEST_F(MediaControllerTest, CommandGoesToTheShownPlayerThenAsksAgain) {
    provider.play(track(MediaSource::music, "M", false));
    provider.play(track(MediaSource::spotify, "S", true));
    controller.refresh();
    const auto asked = provider.stateQueries.size();
    controller.nextTrack();
    controller.playPause();
    EXPECT_EQ(provider.commands,
              (std::vector<std::pair<MediaSource, std::string>>{{MediaSource::spotify, "next track"},
                                                                {MediaSource::spotify, "playpause"}}));
    EXPECT_EQ(asksAfter(0.14), asked);
    EXPECT_EQ(asksAfter(0.01), asked + 2) << "both players, once";
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

}  // namespace
}  // namespace vantrelle
