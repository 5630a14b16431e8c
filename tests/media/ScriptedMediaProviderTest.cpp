#include <gtest/gtest.h>

#include <fstream>

#include "fakes/FakeHttpClient.h"
#include "fakes/FakeProcessRunner.h"
#include "fakes/LogCapture.h"
#include "fakes/LogMessages.h"
#include "fakes/TempDir.h"
#include "media/MediaScripts.h"
#include "media/ScriptedMediaProvider.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

using testing::FakeProcessRunner;

constexpr const char* kScript = "/usr/bin/osascript";
constexpr const char* kCompile = "/usr/bin/osacompile";

// Bytes that start with "IMG" decode to a size given by their length.
class PrefixDecoder final : public ImageDecoder {
public:
    [[nodiscard]] std::optional<ImageSize> decode(const std::vector<std::uint8_t>& bytes) const override {
        if (bytes.size() < 3 || bytes[0] != 'I' || bytes[1] != 'M' || bytes[2] != 'G') return std::nullopt;
        return ImageSize{static_cast<int>(bytes.size()), 10};
    }
};

ProcessResult reply(std::string out, int code = 0, std::string err = {}) {
    return ProcessResult{true, false, code, std::move(out), std::move(err)};
}

class ScriptedMediaProviderTest : public ::testing::Test {
protected:
    ScriptedMediaProvider::Dependencies dependencies() {
        return {processes, queues, scheduler, http, decoder, dir.path(), [](MediaSource) { return true; },
                {}};
    }
    std::optional<NowPlayingTrack> state(MediaSource source) {
        std::optional<NowPlayingTrack> result;
        provider.fetchState(source, [&](std::optional<NowPlayingTrack> track) { result = std::move(track); });
        scheduler.runUntilIdle();
        return result;
    }
    std::optional<Artwork> artwork(const NowPlayingTrack& track) {
        std::optional<Artwork> result;
        provider.fetchArtwork(track, [&](std::optional<Artwork> art) { result = std::move(art); });
        scheduler.runUntilIdle();
        return result;
    }

    testing::TempDir dir;
    FakeProcessRunner processes;
    InlineQueueFactory queues;
    VirtualScheduler scheduler;
    testing::FakeHttpClient http{scheduler};
    PrefixDecoder decoder;
    ScriptedMediaProvider provider{dependencies()};
};

TEST_F(ScriptedMediaProviderTest, CompilesOnceThenRunsTheCompiledFileAlsoAfterARestart) {
    processes.answer = [](const FakeProcessRunner::Call& call) {
        if (call.program == kCompile) std::ofstream(call.arguments[1]) << "compiled";
        return reply("stopped");
    };
    EXPECT_FALSE(state(MediaSource::music));
    EXPECT_FALSE(state(MediaSource::music));
    ASSERT_EQ(processes.calls.size(), 3u);
    const auto script = media_scripts::stateScript(MediaSource::music);
    const auto compiled = (dir.path() / "scripts" / (media_scripts::stableHash(script) + ".scpt")).string();
    EXPECT_EQ(processes.calls[0].program, kCompile);
    EXPECT_EQ(std::vector(processes.calls[0].arguments.begin(), processes.calls[0].arguments.begin() + 4),
              (std::vector<std::string>{"-o", compiled, "-e", "on run"}));
    EXPECT_EQ(processes.calls[1].arguments, std::vector<std::string>{compiled});
    EXPECT_DOUBLE_EQ(processes.calls[1].timeoutSeconds, 6.0);
    EXPECT_EQ(std::filesystem::status(compiled).permissions() & std::filesystem::perms::all,
              std::filesystem::perms::owner_read | std::filesystem::perms::group_read |
                  std::filesystem::perms::others_read);

    ScriptedMediaProvider restarted{dependencies()};
    processes.calls.clear();
    restarted.fetchState(MediaSource::music, [](auto) {});
    EXPECT_EQ(processes.count(kCompile), 0u);
    EXPECT_EQ(processes.calls.at(0).arguments, std::vector<std::string>{compiled});
}

TEST_F(ScriptedMediaProviderTest, FailedCompileStillRunsTheScriptAsText) {
    testing::LogCapture log;
    processes.answer = [](const FakeProcessRunner::Call& call) {
        return call.program == kCompile ? reply("", 1, "syntax") : reply("S<|>A<|>B<|>playing<|>1<|>2<|>3\n");
    };
    const auto track = state(MediaSource::music);
    ASSERT_TRUE(track);
    EXPECT_EQ(track->artworkKey, "Music:3:S");  // the output's line end is no part of the last field
    EXPECT_EQ(processes.calls[1].arguments,
              media_scripts::lineArguments(media_scripts::stateScript(MediaSource::music)));
    const auto hash = media_scripts::stableHash(media_scripts::stateScript(MediaSource::music));
    EXPECT_NE(log.text().find("media: osacompile failed for script hash " + hash + "\n"), std::string::npos);
}

TEST_F(ScriptedMediaProviderTest, ThreeErrorCodesAreSilentOtherFailuresAreLogged) {
    struct Row {
        ProcessResult result;
        std::vector<std::string> logged;
    };
    const Row rows[] = {
        {reply("", 1, "execution error: Can't get current track. (-1728)"), {}},
        {reply("", 1, "Application isn't running. (-600)\n"), {}},
        {reply("", 1, "AppleEvent timed out. (-1712)"), {}},
        {reply("", 1, "  execution error: Not authorised. (-1743)  \n"),
         {"media: osascript failed (1): execution error: Not authorised. (-1743)"}},
        {ProcessResult{true, true, -1, "", ""}, {"media: osascript failed (-1): "}},
        {ProcessResult{false, false, -1, "", ""},
         {"media: osascript launch failed: could not start /usr/bin/osascript"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.result.standardError);
        testing::LogCapture log;
        processes.answer = [&](const FakeProcessRunner::Call&) { return row.result; };
        provider.command(MediaSource::music, "a verb that is too long to compile", [] {});
        scheduler.runUntilIdle();
        EXPECT_EQ(testing::logMessages(log), row.logged);
    }
}

TEST_F(ScriptedMediaProviderTest, SeeksAreNeverCompiledFixedCommandsAre) {
    bool done = false;
    provider.command(MediaSource::spotify, "set player position to 12.0", [&] { done = true; });
    scheduler.runUntilIdle();
    EXPECT_TRUE(done);
    ASSERT_EQ(processes.calls.size(), 1u);
    EXPECT_EQ(processes.calls[0].arguments,
              media_scripts::lineArguments("tell application \"Spotify\" to set player position to 12.0"));
    provider.command(MediaSource::spotify, "playpause", [] {});
    EXPECT_EQ(processes.count(kCompile), 1u);
}

TEST_F(ScriptedMediaProviderTest, MusicArtworkComesThroughTheFileWhichIsRemoved) {
    struct Row {
        std::size_t size;
        const char* prefix;
        bool present;
        const char* logged;
    };
    const Row rows[] = {
        {64, "IMG", false, "media: artwork file missing or empty"},
        {65, "IMG", true, "media: artwork for Music:2:S -> 65x10"},
        {100, "XXX", false, "media: artwork 100 bytes not decodable"},
        {0, "", false, "media: artwork file missing or empty"},  // the script said so but wrote nothing
    };
    int n = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.logged);
        testing::LogCapture log;
        const auto file = provider.artworkFile();
        processes.answer = [&](const FakeProcessRunner::Call& call) {
            if (call.program == kCompile) return reply("", 1);
            if (row.size > 0) {
                std::string bytes(row.size, 'x');
                bytes.replace(0, 3, row.prefix);
                std::ofstream(file, std::ios::binary) << bytes;
            }
            return reply(file.string());
        };
        NowPlayingTrack track;
        track.title = "S";
        track.artworkKey = "Music:" + std::to_string(++n) + ":S";
        const auto art = artwork(track);
        EXPECT_EQ(art.has_value(), row.present);
        EXPECT_FALSE(std::filesystem::exists(file));
        EXPECT_NE(log.text().find(row.logged), std::string::npos) << log.text();
    }
}

TEST_F(ScriptedMediaProviderTest, EmptyArtworkReplyIsSilentAndLeavesTheFile) {
    testing::LogCapture log;
    std::ofstream(provider.artworkFile()) << "someone else's";
    processes.answer = [](const FakeProcessRunner::Call&) { return reply(""); };
    NowPlayingTrack track;
    track.artworkKey = "Music:1:S";
    EXPECT_FALSE(artwork(track));
    EXPECT_TRUE(std::filesystem::exists(provider.artworkFile()));
    EXPECT_EQ(testing::logMessages(log), std::vector<std::string>{"media: artwork for Music:1:S -> nil"});
}

TEST_F(ScriptedMediaProviderTest, SpotifyArtworkIsDownloadedOnceThenCached) {
    testing::LogCapture log;
    NowPlayingTrack track;
    track.source = MediaSource::spotify;
    track.artworkKey = "Spotify:1";
    EXPECT_FALSE(artwork(track));  // no URL: nothing asked, nothing said
    EXPECT_TRUE(http.requests().empty());
    EXPECT_TRUE(testing::logMessages(log).empty());

    track.artworkURL = "https://images.example/1";
    std::optional<Artwork> result;
    provider.fetchArtwork(track, [&](std::optional<Artwork> art) { result = std::move(art); });
    scheduler.runUntilIdle();
    ASSERT_EQ(http.requests().size(), 1u);
    EXPECT_EQ(http.requests()[0].url, "https://images.example/1");
    http.reply(200, "IMG-cover");
    scheduler.runUntilIdle();
    ASSERT_TRUE(result);
    EXPECT_EQ(result->width, 9);

    EXPECT_EQ(artwork(track), result);  // from the cache, no second download, no second line
    EXPECT_EQ(http.requests().size(), 1u);
    EXPECT_TRUE(processes.calls.empty());
    EXPECT_EQ(testing::logMessages(log), std::vector<std::string>{"media: artwork for Spotify:1 -> 9x10"});
}

TEST_F(ScriptedMediaProviderTest, FailedOrUndecodableDownloadsGiveNothing) {
    testing::LogCapture log;
    NowPlayingTrack track;
    track.source = MediaSource::spotify;
    track.artworkKey = "Spotify:2";
    track.artworkURL = "https://images.example/2";
    for (const bool fails : {true, false}) {
        SCOPED_TRACE(fails ? "failed download" : "not an image");
        bool called = false;
        provider.fetchArtwork(track, [&](std::optional<Artwork> art) { called = !art; });
        scheduler.runUntilIdle();
        fails ? http.fail() : http.reply(200, "not an image");
        scheduler.runUntilIdle();
        EXPECT_TRUE(called);
    }
    EXPECT_EQ(testing::logMessages(log), (std::vector<std::string>{"media: artwork for Spotify:2 -> nil",
                                                                   "media: artwork for Spotify:2 -> nil"}));
}

}  // namespace
}  // namespace vantrelle
