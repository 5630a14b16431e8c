#include <gtest/gtest.h>

#include "fakes/TempDir.h"
#include "files/FileBookmark.h"
#include "files/FileUrl.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::TempDir;

TEST(FileBookmark, FollowsARenameInItsFolderButNotAMoveAndTriesItsPathFirst) {
    TempDir dir;
    const fs::path a = dir.write("a.txt", "a");
    const auto bookmark = makeFileBookmark(a);
    ASSERT_TRUE(bookmark);
    fs::rename(a, dir / "renamed.txt");
    EXPECT_EQ(resolveFileBookmark(*bookmark), dir / "renamed.txt");
    fs::create_directory(dir / "elsewhere");
    fs::rename(dir / "renamed.txt", dir / "elsewhere/a.txt");
    EXPECT_EQ(resolveFileBookmark(*bookmark), std::nullopt);
    dir.write("a.txt", "new");  // a new file at the old path wins
    EXPECT_EQ(resolveFileBookmark(*bookmark), a);
}

TEST(FileBookmark, OnlyExistingAbsolutePathsMakeOneAndJunkResolvesToNothing) {
    TempDir dir;
    EXPECT_EQ(makeFileBookmark(dir / "missing"), std::nullopt);
    EXPECT_EQ(makeFileBookmark("relative.txt"), std::nullopt);
    for (const Bytes& junk : {Bytes{}, Bytes{'V', 'B', 'M', '1'}, Bytes(40, 'x'), Bytes(21, 0)}) {
        EXPECT_EQ(resolveFileBookmark(junk), std::nullopt);
    }
}

TEST(FileUrl, LocalFileUrlsOnly) {
    const std::vector<std::pair<std::string, std::optional<fs::path>>> rows{
        {"file:///home/me/a%20b.png", "/home/me/a b.png"},
        {"FILE://localhost/tmp/x", "/tmp/x"},
        {"file:///tmp/%C3%A9t%C3%A9.txt", "/tmp/\xC3\xA9t\xC3\xA9.txt"},
        {"file://server/share/a", std::nullopt},
        {"file:///tmp/bad%2", std::nullopt},
        {"file:///tmp/nul%00", std::nullopt},
        {"https://example.org/a", std::nullopt},
    };
    for (const auto& [url, path] : rows) EXPECT_EQ(pathFromFileUrl(url), path) << url;
}

TEST(FileUrl, RoundTripsOddNames) {
    for (const fs::path path : {"/tmp/a b#c?.txt", "/tmp/100%", "/tmp/\xC3\xA9", "/tmp/new\nline"}) {
        EXPECT_EQ(pathFromFileUrl(fileUrlFromPath(path)), path) << path;
    }
}

}  // namespace
}  // namespace vantrelle
