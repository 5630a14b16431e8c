// The update check through the real HTTP client against a feed that the test serves on loopback.
#include <gtest/gtest.h>

#include "DebianPackage.h"
#include "LoopbackServer.h"
#include "QtHttpClient.h"
#include "TestApplication.h"
#include "fakes/LogCapture.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "updates/UpdateNotice.h"

namespace vantrelle {
namespace {

using testing::spinUntil;

class UpdateFeedTest : public testing::EventLoopTest {
protected:
    std::unique_ptr<UpdateNotice> notice(std::string feed, std::string installed = "1.9.0") {
        return std::make_unique<UpdateNotice>(UpdateNotice::Dependencies{
            http, scheduler, activities, std::move(installed), std::move(feed), true});
    }
    // Checks and waits for the answer.
    void check(UpdateNotice& n, bool userInitiated) {
        const auto before = server.requestLines().size();
        n.check(userInitiated);
        ASSERT_TRUE(spinUntil([&] { return server.requestLines().size() > before && !n.isChecking(); }));
    }
    [[nodiscard]] std::string feed() const { return server.base() + "/feed.json"; }
    [[nodiscard]] std::optional<std::string> flashed() const {
        const auto& current = activities.current();
        if (!current || !current->is<LiveActivity::Update>()) return std::nullopt;
        return current->as<LiveActivity::Update>()->version;
    }

    QtHttpClient http;
    VirtualScheduler scheduler;
    LiveActivityCenter activities{scheduler};
    testing::LoopbackServer server;
};

TEST_F(UpdateFeedTest, ANewerReleaseFlashesOnceAnOlderOneIsNoNewsAndAMalformedOneChangesNothing) {
    struct Row {
        const char* installed;
        const char* feed;
        std::optional<std::string> flash;
        const char* status;
    };
    const Row rows[] = {
        {"1.9.0", R"({"version":"1.10.0","notes":"https://vantrelle.app/1.10"})", "1.10.0",
         "Vantrelle 1.10.0 is available."},
        {"1.10.0", R"({"version":"1.9.5"})", std::nullopt, "Vantrelle 1.10.0 is up to date."},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.feed);
        auto n = notice(feed(), row.installed);
        server.respond(200, row.feed);
        check(*n, false);
        EXPECT_EQ(flashed(), row.flash);
        EXPECT_EQ(n->statusText(), row.status);
        scheduler.advance(UpdateNotice::kFlashSeconds);
        EXPECT_FALSE(activities.current()) << "the flash ends after its time";
    }
    auto n = notice(feed());
    server.respond(200, R"({"version":"2.0"})");
    check(*n, false);
    scheduler.advance(UpdateNotice::kFlashSeconds);
    check(*n, false);
    EXPECT_FALSE(flashed()) << "once per version";
    check(*n, true);
    EXPECT_EQ(flashed(), "2.0") << "unless the user asked";

    // A malformed feed is logged and leaves the state as it was.
    testing::LogCapture log;
    scheduler.advance(UpdateNotice::kFlashSeconds);
    server.respond(200, "<html>");
    check(*n, true);
    EXPECT_EQ(n->available()->version, "2.0");
    EXPECT_FALSE(activities.current());
    EXPECT_NE(log.text().find("updates: ignored a malformed feed"), std::string::npos);
}

TEST(DebianPackageTest, OnlyFilesOurPackageListsCount) {
    testing::TempDir dir;
    const auto ours = dir.write("usr/bin/vantrelle", "");
    const auto other = dir.write("usr/bin/other", "");
    std::filesystem::create_directory_symlink(dir / "usr/bin", dir / "bin");
    dir.write("info/vantrelle.list", "/.\n/usr\n" + (dir / "bin/vantrelle").string() + "\n");
    EXPECT_TRUE(installedByPackage("vantrelle", ours, dir / "info")) << "listed through a linked folder";
    EXPECT_FALSE(installedByPackage("vantrelle", other, dir / "info"));
    EXPECT_FALSE(installedByPackage("vantrelle", ours, dir / "nowhere"));
    EXPECT_FALSE(installedByPackage("vantrelle", dir / "usr/bin/missing", dir / "info"));
}

}  // namespace
}  // namespace vantrelle
