#include <gtest/gtest.h>

#include "media/ArtworkCache.h"
#include "media/MediaScripts.h"

namespace vantrelle {
namespace {

using namespace media_scripts;

TEST(MediaScripts, MusicStateScriptIsExact) {
    EXPECT_EQ(
        stateScript(MediaSource::music),
        "tell application \"Music\"\n"
        "    set theState to player state\n"
        "    if theState is stopped then return \"stopped\"\n"
        "    set stateText to \"paused\"\n"
        "    if theState is playing then set stateText to \"playing\"\n"
        "    set t to current track\n"
        "    return (name of t as text) & \"<|>\" & (artist of t as text) & \"<|>\" & (album of t as text) & "
        "\"<|>\" & stateText & \"<|>\" & (player position as text) & \"<|>\" & (duration of t as text) & "
        "\"<|>\" & (database ID of t as text)\n"
        "end tell");
}

TEST(MediaScripts, SpotifyStateScriptDividesTheDurationAndAddsTheArtworkUrl) {
    const auto script = stateScript(MediaSource::spotify);
    EXPECT_EQ(script.substr(0, 27), "tell application \"Spotify\"\n");
    EXPECT_NE(script.find(
                  "& \"<|>\" & (((duration of t) / 1000) as text) & \"<|>\" & (id of t as text) & \"<|>\" & "
                  "(artwork url of t as text)\nend tell"),
              std::string::npos);
    EXPECT_EQ(script.substr(script.size() - 8), "end tell");
}

TEST(MediaScripts, CommandScriptNamesThePlayer) {
    EXPECT_EQ(commandScript(MediaSource::spotify, "next track"),
              "tell application \"Spotify\" to next track");
}

TEST(MediaScripts, ArtworkScriptWritesToTheGivenFile) {
    const auto script = musicArtworkScript("/cache/Vantrelle/artwork.bin");
    EXPECT_NE(
        script.find(
            "end tell\nset p to \"/cache/Vantrelle/artwork.bin\"\nset f to open for access (POSIX "
            "file p) with write permission\nset eof f to 0\nwrite artData to f\nclose access f\nreturn p"),
        std::string::npos);
    EXPECT_EQ(
        script.rfind("tell application \"Music\"\n    if player state is stopped then return \"\"\n", 0), 0u);
}

TEST(MediaScripts, LineArgumentsWrapARunHandlerAndSkipEmptyLines) {
    EXPECT_EQ(lineArguments("a\n\nb"),
              (std::vector<std::string>{"-e", "on run", "-e", "a", "-e", "b", "-e", "end run"}));
    EXPECT_EQ(lineArguments(""), (std::vector<std::string>{"-e", "on run", "-e", "end run"}));
}

TEST(MediaScripts, StableHashIsDjb2InLowerCaseHex) {
    struct Row {
        const char* text;
        const char* hash;
    };
    const Row rows[] = {
        {"", "1505"},
        {"a", "2b606"},
        {"tell application \"Music\" to playpause", "97953ffa8674bc66"},  // wraps past 64 bits
        {"\xc3\xa9", "598411"},                                           // UTF-8 bytes, not characters
    };
    for (const auto& row : rows) EXPECT_EQ(stableHash(row.text), row.hash) << row.text;
}

TEST(MediaScripts, OnlyShortVerbsAreCompiled) {
    EXPECT_TRUE(cachesCommand(std::string(23, 'x')));
    EXPECT_FALSE(cachesCommand(std::string(24, 'x')));
    EXPECT_TRUE(cachesCommand("previous track"));
    EXPECT_FALSE(cachesCommand("set player position to 1.0"));
}

Artwork art(int width) {
    return Artwork{std::make_shared<const std::vector<std::uint8_t>>(1, 0), width, width};
}

TEST(ArtworkCache, NinthEntryEvictsTheFirstWhateverWasUsed) {
    ArtworkCache cache;
    for (int i = 1; i <= 8; ++i) cache.remember("k" + std::to_string(i), art(i));
    EXPECT_TRUE(cache.find("k1"));  // a hit doesn't refresh k1
    cache.remember("k9", art(9));
    EXPECT_FALSE(cache.find("k1"));
    EXPECT_EQ(cache.find("k2")->width, 2);
    EXPECT_EQ(cache.find("k9")->width, 9);
    EXPECT_EQ(cache.size(), 8u);
}

TEST(ArtworkCache, AKeyStoredTwiceHoldsTwoPlacesInTheOrder) {
    ArtworkCache cache;
    cache.remember("a", art(1));
    cache.remember("k2", art(2));
    cache.remember("a", art(3));  // order: a k2 a
    for (int i = 4; i <= 9; ++i) cache.remember("k" + std::to_string(i), art(i));
    // The ninth place evicts the first "a", and with it the entry, though a later "a" is still in the order.
    EXPECT_FALSE(cache.find("a"));
    EXPECT_TRUE(cache.find("k2"));
    EXPECT_EQ(cache.size(), 7u);
}

}  // namespace
}  // namespace vantrelle
