#include <gtest/gtest.h>

#include <string>

#include "media/ArtworkCache.h"

namespace vantrelle {
namespace {

Artwork sized(int width) {
    return Artwork{nullptr, width, 1};
}

TEST(ArtworkCache, KeepsTheLastEightByFirstStoredAndAStoredAgainKeyStays) {
    ArtworkCache cache;
    for (int i = 0; i < 8; ++i) cache.remember("k" + std::to_string(i), sized(i));
    ASSERT_TRUE(cache.find("k0"));  // a hit doesn't move k0 to the back
    cache.remember("k1", sized(100));
    EXPECT_EQ(cache.size(), 8u);

    cache.remember("k8", sized(8));
    EXPECT_FALSE(cache.find("k0")) << "the first stored goes first";
    EXPECT_EQ(cache.find("k1"), sized(100));
    cache.remember("k9", sized(9));
    EXPECT_FALSE(cache.find("k1")) << "storing again kept its place in line";
    EXPECT_EQ(cache.find("k9"), sized(9));
    EXPECT_EQ(cache.size(), 8u);
}

}  // namespace
}  // namespace vantrelle
