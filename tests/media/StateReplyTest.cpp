#include <fmt/format.h>
#include <gtest/gtest.h>

#include "fakes/LogCapture.h"
#include "fakes/LogMessages.h"
#include "media/StateReply.h"

namespace vantrelle {
namespace {

// "title playing|paused position/duration key [url]", or "none".
std::string describe(const std::optional<NowPlayingTrack>& track) {
    if (!track) return "none";
    return fmt::format("{} {} {}/{} {}{}", track->title, track->isPlaying ? "playing" : "paused",
                       track->position, track->duration, track->artworkKey,
                       track->artworkURL ? " " + *track->artworkURL : "");
}

TEST(StateReply, ParsesReplies) {
    struct Row {
        const char* name;
        MediaSource source;
        const char* reply;
        const char* track;
    };
    const Row rows[] = {
        {"stopped", MediaSource::music, "stopped", "none"},
        {"music", MediaSource::music, "Song<|>A<|>B<|>playing<|>12.5<|>200.25<|>77",
         "Song playing 12.5/200.25 Music:77:Song"},
        {"decimal comma", MediaSource::music, "Song<|>A<|>B<|>playing<|>12,5<|>200,25<|>77",
         "Song playing 12.5/200.25 Music:77:Song"},
        {"raw playing code", MediaSource::music,
         "S<|>A<|>B<|>\xc2\xab"
         "constant ****kPSP\xc2\xbb<|>1<|>2<|>9",
         "S playing 1/2 Music:9:S"},
        {"raw paused code", MediaSource::music, "S<|>A<|>B<|>x kPSp x<|>1<|>2<|>9", "S paused 1/2 Music:9:S"},
        {"upper case word", MediaSource::music, "S<|>A<|>B<|>PLAYING<|>1<|>2<|>9", "S playing 1/2 Music:9:S"},
        {"unknown state keeps the track", MediaSource::music, "S<|>A<|>B<|>fast forwarding<|>1<|>2<|>9",
         "S paused 1/2 Music:9:S"},
        {"unreadable numbers are zero", MediaSource::music, "S<|>A<|>B<|>paused<|>missing value<|> 7 <|>9",
         "S paused 0/7 Music:9:S"},
        {"newline is not trimmed", MediaSource::music, "S<|>A<|>B<|>paused<|>3\n<|>4<|>9",
         "S paused 0/4 Music:9:S"},
        {"spotify with url", MediaSource::spotify,
         "S<|>A<|>B<|>playing<|>3<|>180.5<|>spotify:track:1<|>https://i.scdn.co/image/ab",
         "S playing 3/180.5 Spotify:spotify:track:1 https://i.scdn.co/image/ab"},
        {"spotify with seven fields", MediaSource::spotify, "S<|>A<|>B<|>playing<|>3<|>180<|>spotify:track:1",
         "S playing 3/180 Spotify:spotify:track:1"},
        {"spotify url that isn't one", MediaSource::spotify,
         "S<|>A<|>B<|>playing<|>3<|>180<|>id<|>missing value", "S playing 3/180 Spotify:id"},
        {"title with separator shifts fields", MediaSource::music, "So<|>ng<|>A<|>B<|>playing<|>1<|>2<|>9",
         "So paused 0/1 Music:2:So"},
        {"six fields", MediaSource::music, "S<|>A<|>B<|>playing<|>1<|>2", "none"},
        // The database id alone doesn't tell tracks apart: the title is part of the key.
        {"same id, other title", MediaSource::music, "Two<|>A<|>B<|>playing<|>1<|>2<|>77",
         "Two playing 1/2 Music:77:Two"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto track = parseStateReply(row.source, row.reply);
        EXPECT_EQ(describe(track), row.track);
        EXPECT_TRUE(!track || track->source == row.source);
    }
}

TEST(StateReply, LogsShortRepliesAndUnknownStates) {
    testing::LogCapture log;
    const std::string longReply = "x<|>" + std::string(200, 'y');
    (void)parseStateReply(MediaSource::spotify, longReply);
    (void)parseStateReply(MediaSource::music, "S<|>A<|>B<|>rewinding<|>1<|>2<|>9");
    (void)parseStateReply(MediaSource::music, "stopped");
    EXPECT_EQ(
        testing::logMessages(log),
        (std::vector<std::string>{"media: unexpected state reply from Spotify: " + longReply.substr(0, 120),
                                  "media: unrecognised player state 'rewinding' from Music"}));
}

}  // namespace
}  // namespace vantrelle
