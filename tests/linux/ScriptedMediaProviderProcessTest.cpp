#include <gtest/gtest.h>

#include "QtImageDecoder.h"
#include "QtProcessRunner.h"
#include "fakes/FakeHttpClient.h"
#include "fakes/TempDir.h"
#include "media/MediaScripts.h"
#include "media/ScriptedMediaProvider.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

// Stand-ins for the two script tools: osacompile writes the script's lines into the output file;
// osascript logs its arguments and answers with what the test left in "reply".
constexpr const char* kOsacompile = R"SH(#!/bin/sh
out="$2"; shift 2
printf '%s\n' "$@" > "$out"
)SH";
constexpr const char* kOsascript = R"SH(#!/bin/sh
dir=$(dirname "$0")
printf '%s\n' "$*" >> "$dir/calls"
cat "$dir/reply"
)SH";

TEST(ScriptedMediaProviderProcessTest, ParsesAReplyThroughACompiledScriptKeptAcrossRestarts) {
    testing::TempDir tools;
    testing::TempDir cache;
    tools.write("osacompile", kOsacompile);
    tools.write("osascript", kOsascript);
    for (const char* name : {"osacompile", "osascript"})
        std::filesystem::permissions(tools / name, std::filesystem::perms::owner_all);
    tools.write("reply", "Song<|>Artist<|>Album<|>playing<|>12,5<|>200,25<|>77\n");
    QtProcessRunner processes;
    InlineQueueFactory queues;
    VirtualScheduler scheduler;
    testing::FakeHttpClient http{scheduler};
    QtImageDecoder decoder;
    const auto state = [&] {
        ScriptedMediaProvider provider(
            {processes,
             queues,
             scheduler,
             http,
             decoder,
             cache.path(),
             [](MediaSource) { return true; },
             {(tools / "osascript").string(), (tools / "osacompile").string(), 6.0}});
        std::optional<NowPlayingTrack> result;
        provider.fetchState(MediaSource::music,
                            [&](std::optional<NowPlayingTrack> track) { result = track; });
        scheduler.runUntilIdle();
        return result;
    };

    const auto track = state();
    ASSERT_TRUE(track);
    EXPECT_EQ(track->artworkKey, "Music:77:Song");  // the output's line end is no part of the last field
    const auto compiled =
        cache /
        ("scripts/" + media_scripts::stableHash(media_scripts::stateScript(MediaSource::music)) + ".scpt");
    ASSERT_TRUE(std::filesystem::exists(compiled));

    std::filesystem::remove(tools / "osacompile");  // a restart finds the compiled copy by its hash
    EXPECT_TRUE(state());
    EXPECT_EQ(tools.read("calls"), compiled.string() + "\n" + compiled.string() + "\n");
}

}  // namespace
}  // namespace vantrelle
