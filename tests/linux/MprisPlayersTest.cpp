#include <gtest/gtest.h>

#include <QDBusObjectPath>
#include <QStringList>

#include "media/MprisPlayers.h"
#include "media/MprisTrack.h"

namespace vantrelle {
namespace {

const QString kMpv = QStringLiteral("org.mpris.MediaPlayer2.mpv");
const QString kVlc = QStringLiteral("org.mpris.MediaPlayer2.vlc");

TEST(MprisPlayers, SpotifyStandsForItselfAndMusicIsThePlayingOtherElseTheLastActive) {
    MprisPlayers players;
    players.appeared(MprisPlayers::kSpotify, QStringLiteral(":1.5"));
    EXPECT_EQ(players.chosen(MediaSource::spotify), MprisPlayers::kSpotify);
    EXPECT_FALSE(players.chosen(MediaSource::music));
    EXPECT_FALSE(MprisPlayers::isPlayerName(QStringLiteral("org.freedesktop.Notifications")));
    players.appeared(kMpv, QStringLiteral(":1.1"));
    players.appeared(kVlc, QStringLiteral(":1.2"));
    EXPECT_EQ(players.chosen(MediaSource::music), kVlc);  // the newest counts as the last active
    players.setPlaying(kMpv, true);
    EXPECT_EQ(players.chosen(MediaSource::music), kMpv);
    players.setPlaying(kVlc, true);  // both play: the one that started last
    EXPECT_EQ(players.chosen(MediaSource::music), kVlc);
    players.setPlaying(kVlc, false);  // a paused player doesn't beat a playing one
    EXPECT_EQ(players.chosen(MediaSource::music), kMpv);
    players.setPlaying(kMpv, false);  // both paused: the last to start playing
    EXPECT_EQ(players.chosen(MediaSource::music), kVlc);
    players.vanished(kVlc);
    EXPECT_EQ(players.chosen(MediaSource::music), kMpv);
    EXPECT_FALSE(players.nameForOwner(QStringLiteral(":1.2"))) << "gone with its player";
}

QVariantMap properties(const QString& status, const QVariantMap& metadata, qlonglong position) {
    return {{QStringLiteral("PlaybackStatus"), status},
            {QStringLiteral("Metadata"), metadata},
            {QStringLiteral("Position"), position}};
}

TEST(MprisTrack, ReadsThePlayerPropertiesInSeconds) {
    const QVariantMap metadata{
        {QStringLiteral("xesam:title"), QStringLiteral("Song")},
        {QStringLiteral("xesam:artist"), QStringList{QStringLiteral("A"), QStringLiteral("B")}},
        {QStringLiteral("xesam:album"), QStringLiteral("Album")},
        {QStringLiteral("mpris:trackid"), QVariant::fromValue(QDBusObjectPath(QStringLiteral("/t/7")))},
        {QStringLiteral("mpris:length"), qlonglong(200'500'000)},
        {QStringLiteral("mpris:artUrl"), QStringLiteral("file:///tmp/cover.png")}};
    NowPlayingTrack expected{.title = "Song",
                             .artist = "A, B",
                             .album = "Album",
                             .isPlaying = true,
                             .duration = 200.5,
                             .position = 12.25,
                             .source = MediaSource::music,
                             .artworkKey = "mpv:/t/7:Song",
                             .artworkURL = "file:///tmp/cover.png"};
    EXPECT_EQ(trackFromMpris(kMpv, properties(QStringLiteral("Playing"), metadata, 12'250'000)), expected);
}

TEST(MprisTrack, StoppedOrEmptyIsNoTrackAndOddNumbersAreZero) {
    const QVariantMap metadata{{QStringLiteral("xesam:title"), QStringLiteral("Song")},
                               {QStringLiteral("mpris:length"), QStringLiteral("long")}};
    EXPECT_FALSE(trackFromMpris(kMpv, properties(QStringLiteral("Stopped"), metadata, 0)));
    EXPECT_FALSE(trackFromMpris(kMpv, properties(QStringLiteral("Playing"), {}, 0)));
    const auto track = trackFromMpris(kMpv, properties(QStringLiteral("Playing"), metadata, -5));
    ASSERT_TRUE(track);
    EXPECT_DOUBLE_EQ(track->duration, 0);
    EXPECT_DOUBLE_EQ(track->position, 0);
}

}  // namespace
}  // namespace vantrelle
