#include <gtest/gtest.h>

#include <QBuffer>
#include <QElapsedTimer>
#include <QImage>
#include <fstream>

#include "QtImageDecoder.h"
#include "QtProcessRunner.h"
#include "fakes/FakeHttpClient.h"
#include "fakes/LogCapture.h"
#include "fakes/LogMessages.h"
#include "fakes/TempDir.h"
#include "media/MediaScripts.h"
#include "media/ScriptedMediaProvider.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

// Stand-ins for the two script tools. osacompile writes the script's lines into the output file;
// osascript logs its arguments, then answers with what the test left in "reply" or sleeps as long as
// "sleep" says. Given the artwork script it copies "cover.png" to the path the script names.
constexpr const char* kOsacompile = R"SH(#!/bin/sh
out="$2"; shift 2
printf '%s\n' "$@" > "$out"
)SH";
constexpr const char* kOsascript = R"SH(#!/bin/sh
dir=$(dirname "$0")
printf '%s\n' "$*" >> "$dir/calls"
if [ -f "$1" ]; then text=$(cat "$1"); else text="$*"; fi
case "$text" in
  *"raw data of artwork"*)
    path=$(printf '%s\n' "$text" | sed -n 's/.*set p to "\(.*\)".*/\1/p' | head -n 1)
    cp "$dir/cover.png" "$path"; printf '%s' "$path"; exit 0;;
esac
[ -f "$dir/sleep" ] && exec sleep "$(cat "$dir/sleep")"
[ -f "$dir/reply" ] && cat "$dir/reply"
exit 0
)SH";

class ScriptedMediaProviderProcessTest : public ::testing::Test {
protected:
    ScriptedMediaProviderProcessTest() {
        tools.write("osacompile", kOsacompile);
        tools.write("osascript", kOsascript);
        for (const char* name : {"osacompile", "osascript"}) {
            std::filesystem::permissions(tools / name, std::filesystem::perms::owner_all);
        }
    }
    std::unique_ptr<ScriptedMediaProvider> make(double watchdog = 6.0) {
        return std::make_unique<ScriptedMediaProvider>(ScriptedMediaProvider::Dependencies{
            processes, queues, scheduler, http, decoder, cache.path(), [](MediaSource) { return true; },
            ScriptRunner::Tools{(tools / "osascript").string(), (tools / "osacompile").string(), watchdog}});
    }
    std::optional<NowPlayingTrack> state(ScriptedMediaProvider& provider, MediaSource source) {
        std::optional<NowPlayingTrack> result;
        provider.fetchState(source, [&](std::optional<NowPlayingTrack> track) { result = std::move(track); });
        scheduler.runUntilIdle();
        return result;
    }
    std::size_t callCount() const {
        std::ifstream in(tools / "calls");
        std::size_t n = 0;
        for (std::string line; std::getline(in, line);) ++n;
        return n;
    }

    testing::TempDir tools;
    testing::TempDir cache;
    QtProcessRunner processes;
    InlineQueueFactory queues;
    VirtualScheduler scheduler;
    testing::FakeHttpClient http{scheduler};
    QtImageDecoder decoder;
};

TEST_F(ScriptedMediaProviderProcessTest, ParsesAReplyThroughACompiledScriptKeptAcrossRestarts) {
    tools.write("reply", "Song<|>Artist<|>Album<|>playing<|>12,5<|>200,25<|>77\n");
    auto provider = make();
    auto track = state(*provider, MediaSource::music);
    ASSERT_TRUE(track);
    EXPECT_EQ(track->title, "Song");
    EXPECT_EQ(track->artworkKey, "Music:77:Song");  // the output's line end is no part of the last field

    const auto compiled =
        cache /
        ("scripts/" + media_scripts::stableHash(media_scripts::stateScript(MediaSource::music)) + ".scpt");
    ASSERT_TRUE(std::filesystem::exists(compiled));
    EXPECT_EQ(tools.read("calls"), compiled.string() + "\n");

    provider = make();  // a restart finds the compiled copy by its hash
    std::filesystem::remove(tools / "osacompile");
    EXPECT_TRUE(state(*provider, MediaSource::music));
    EXPECT_EQ(callCount(), 2u);
}

TEST_F(ScriptedMediaProviderProcessTest, WatchdogEndsAPlayerThatDoesNotAnswer) {
    testing::LogCapture log;
    tools.write("sleep", "30");
    tools.write("reply", "late<|>A<|>B<|>playing<|>1<|>2<|>3");
    auto provider = make(0.5);
    QElapsedTimer elapsed;
    elapsed.start();
    EXPECT_FALSE(state(*provider, MediaSource::spotify));
    EXPECT_LT(elapsed.elapsed(), 10'000);
    EXPECT_EQ(testing::logMessages(log), std::vector<std::string>{"media: osascript failed (-1): "});
}

TEST_F(ScriptedMediaProviderProcessTest, MusicArtworkComesThroughItsFile) {
    QImage image(48, 32, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(QString::fromStdString((tools / "cover.png").string()), "PNG"));
    auto provider = make();
    NowPlayingTrack track;
    track.title = "Song";
    track.artworkKey = "Music:77:Song";
    std::optional<Artwork> artwork;
    provider->fetchArtwork(track, [&](std::optional<Artwork> art) { artwork = std::move(art); });
    scheduler.runUntilIdle();
    ASSERT_TRUE(artwork);
    EXPECT_EQ(artwork->width, 48);
    EXPECT_EQ(artwork->height, 32);
    EXPECT_FALSE(std::filesystem::exists(provider->artworkFile()));
}

}  // namespace
}  // namespace vantrelle
