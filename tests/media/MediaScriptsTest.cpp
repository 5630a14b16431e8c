#include <gtest/gtest.h>

#include "media/ArtworkCache.h"
#include "media/MediaScripts.h"

namespace vantrelle {
namespace {

using namespace media_scripts;

TEST(MediaScripts, ArtworkScriptWritesToTheGivenFile) {
    EXPECT_NE(musicArtworkScript("/cache/Vantrelle/artwork.bin")
                  .find("set p to \"/cache/Vantrelle/artwork.bin\"\n"),
              std::string::npos);
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
        {"tell application \"Music\" to playpause", "97953ffa8674bc66"},  // wraps past 64 bits
        {"\xc3\xa9", "598411"},                                           // UTF-8 bytes, not characters
    };
    for (const auto& row : rows) EXPECT_EQ(stableHash(row.text), row.hash) << row.text;
}

TEST(MediaScripts, OnlyShortVerbsAreCompiled) {
    EXPECT_TRUE(cachesCommand(std::string(23, 'x')));
    EXPECT_FALSE(cachesCommand(std::string(24, 'x')));
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
