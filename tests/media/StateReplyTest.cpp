#include <gtest/gtest.h>

#include "fakes/LogCapture.h"
#include "fakes/LogMessages.h"
#include "media/StateReply.h"

namespace vantrelle {
namespace {

TEST(StateReply, ParsesReplies) {
    struct Row {
        const char* name;
        MediaSource source;
        const char* reply;
        bool present;
        const char* title;
        bool playing;
        double position;
        double duration;
        const char* key;
        std::optional<std::string> url;
    };
    const Row rows[] = {
        {"stopped", MediaSource::music, "stopped", false, "", false, 0, 0, "", std::nullopt},
        {"empty", MediaSource::music, "", false, "", false, 0, 0, "", std::nullopt},
        {"music", MediaSource::music, "Song<|>A<|>B<|>playing<|>12.5<|>200.25<|>77", true, "Song", true, 12.5,
         200.25, "Music:77:Song", std::nullopt},
        {"decimal comma", MediaSource::music, "Song<|>A<|>B<|>playing<|>12,5<|>200,25<|>77", true, "Song",
         true, 12.5, 200.25, "Music:77:Song", std::nullopt},
        {"raw playing code", MediaSource::music,
         "S<|>A<|>B<|>\xc2\xab"
         "constant ****kPSP\xc2\xbb<|>1<|>2<|>9",
         true, "S", true, 1, 2, "Music:9:S", std::nullopt},
        {"raw paused code", MediaSource::music, "S<|>A<|>B<|>x kPSp x<|>1<|>2<|>9", true, "S", false, 1, 2,
         "Music:9:S", std::nullopt},
        {"upper case word", MediaSource::music, "S<|>A<|>B<|>PLAYING<|>1<|>2<|>9", true, "S", true, 1, 2,
         "Music:9:S", std::nullopt},
        {"unknown state keeps the track", MediaSource::music, "S<|>A<|>B<|>fast forwarding<|>1<|>2<|>9", true,
         "S", false, 1, 2, "Music:9:S", std::nullopt},
        {"unreadable numbers are zero", MediaSource::music, "S<|>A<|>B<|>paused<|>missing value<|> 7 <|>9",
         true, "S", false, 0, 7, "Music:9:S", std::nullopt},
        {"newline is not trimmed", MediaSource::music, "S<|>A<|>B<|>paused<|>3\n<|>4<|>9", true, "S", false,
         0, 4, "Music:9:S", std::nullopt},
        {"spotify with url", MediaSource::spotify,
         "S<|>A<|>B<|>playing<|>3<|>180.5<|>spotify:track:1<|>https://i.scdn.co/image/ab", true, "S", true, 3,
         180.5, "Spotify:spotify:track:1", std::string("https://i.scdn.co/image/ab")},
        {"spotify with seven fields", MediaSource::spotify, "S<|>A<|>B<|>playing<|>3<|>180<|>spotify:track:1",
         true, "S", true, 3, 180, "Spotify:spotify:track:1", std::nullopt},
        {"spotify url that isn't one", MediaSource::spotify,
         "S<|>A<|>B<|>playing<|>3<|>180<|>id<|>missing value", true, "S", true, 3, 180, "Spotify:id",
         std::nullopt},
        {"title with separator shifts fields", MediaSource::music, "So<|>ng<|>A<|>B<|>playing<|>1<|>2<|>9",
         true, "So", false, 0, 1, "Music:2:So", std::nullopt},
        {"six fields", MediaSource::music, "S<|>A<|>B<|>playing<|>1<|>2", false, "", false, 0, 0, "",
         std::nullopt},
        // The database id alone doesn't tell tracks apart: the title is part of the key.
        {"same id, other title", MediaSource::music, "Two<|>A<|>B<|>playing<|>1<|>2<|>77", true, "Two", true,
         1, 2, "Music:77:Two", std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto track = parseStateReply(row.source, row.reply);
        ASSERT_EQ(track.has_value(), row.present);
        if (!track) continue;
        EXPECT_EQ(track->title, row.title);
        EXPECT_EQ(track->isPlaying, row.playing);
        EXPECT_DOUBLE_EQ(track->position, row.position);
        EXPECT_DOUBLE_EQ(track->duration, row.duration);
        EXPECT_EQ(track->artworkKey, row.key);
        EXPECT_EQ(track->artworkURL, row.url);
        EXPECT_EQ(track->source, row.source);
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
