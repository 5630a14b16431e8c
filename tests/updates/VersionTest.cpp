#include <gtest/gtest.h>

#include "updates/UpdateNotice.h"
#include "updates/Version.h"

namespace vantrelle {
namespace {

TEST(VersionTest, OrdersReleasesAndPreReleases) {
    struct Row {
        const char* older;
        const char* newer;
    };
    const Row rows[] = {
        {"1.9.9", "1.10.0"},           {"0.1.0", "v0.2"},
        {"1.2.0-beta", "1.2.0"},       {"1.2.0~rc1", "1.2.0"},
        {"1.2.0-alpha", "1.2.0-beta"}, {"1.2.0-beta.2", "1.2.0-beta.10"},
        {"1.2.0-1", "1.2.0-alpha"},    {"1.2.0-beta", "1.2.0-beta.1"},
        {"1.2.0", "1.2.1-rc.1"},
    };
    for (const Row& row : rows) {
        const auto older = Version::parse(row.older);
        const auto newer = Version::parse(row.newer);
        ASSERT_TRUE(older && newer) << row.older << " " << row.newer;
        EXPECT_LT(older->compare(*newer), 0) << row.older << " < " << row.newer;
        EXPECT_GT(newer->compare(*older), 0) << row.newer << " > " << row.older;
    }
    EXPECT_EQ(*Version::parse("1.2"), *Version::parse("1.2.0+build.5"));
}

TEST(VersionTest, RejectsWhatIsNoVersion) {
    for (const char* text :
         {"", "v", "1..2", "1.x", "one", "1.2-", "1.2-be ta", "-1.2", "99999999999999999999999"})
        EXPECT_FALSE(Version::parse(text)) << text;
}

TEST(VersionTest, FeedDocuments) {
    EXPECT_EQ(parseUpdateFeed(R"({"version":"1.4.0","notes":"https://example.org/1.4"})"),
              (UpdateRelease{"1.4.0", "https://example.org/1.4"}));
    EXPECT_EQ(parseUpdateFeed(R"({"version":"1.4.0","notes":"file:///etc/passwd"})"),
              (UpdateRelease{"1.4.0", ""}));
    for (const char* bad :
         {"", "[]", "{", R"({"version":14})", R"({"notes":"https://x"})", R"({"version":"new"})"}) {
        std::string problem;
        EXPECT_FALSE(parseUpdateFeed(bad, &problem)) << bad;
        EXPECT_FALSE(problem.empty()) << bad;
    }
}

}  // namespace
}  // namespace vantrelle
