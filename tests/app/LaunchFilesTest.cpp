#include <gtest/gtest.h>

#include "app/LaunchFiles.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "support/AtomicFile.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::TempDir;

AppPaths pathsIn(const TempDir& home) {
    AppPaths paths;
    paths.home = home.path();
    paths.dataHome = home / "data";
    paths.configHome = home / "config";
    paths.cacheHome = home / "cache";
    return paths;
}

TEST(LaunchFiles, MovesTheLegacyDataInAndSweepsBothRootsOfKilledWritersFiles) {
    TempDir home;
    VirtualScheduler clock;
    home.write("data/Kestrand/wrapped-history.json", "legacy");
    home.write("config/Vantrelle/defaults.json.Q1w2E3", "half, from an earlier version");
    home.write("data/Vantrelle/wrapped-history.json.z9X8c7", "half, from an earlier version");
    // Migrated in first, then swept.
    home.write("data/Kestrand/" + temporaryFilePrefix("wrapped-history.json") + "Mn8Bv7", "half");
    home.write("config/Vantrelle/defaults.json.backup", "a copy the user made");

    prepareLaunchFiles(pathsIn(home), clock, [](const fs::path&) { return std::nullopt; });

    EXPECT_EQ(home.read("data/Vantrelle/wrapped-history.json"), "legacy");
    EXPECT_FALSE(fs::exists(home / "data/Kestrand"));
    EXPECT_EQ(testing::fileNamesIn(home / "data/Vantrelle"),
              std::vector<std::string>{"wrapped-history.json"});
    EXPECT_EQ(testing::fileNamesIn(home / "config/Vantrelle"),
              std::vector<std::string>{"defaults.json.backup"});
}

TEST(LaunchFiles, SweepsBesideOtherProgramsFilesAndBesideTheTargetsOfTheirLinks) {
    TempDir home;
    home.write("dotfiles/claude/settings.json", "{}");
    fs::create_directories(home / ".claude");
    fs::create_symlink(home / "dotfiles/claude/settings.json", home / ".claude/settings.json");
    const std::vector<fs::path> leftovers = {
        home.write(".claude/" + temporaryFilePrefix("settings.json") + "Aa11Bb", "{"),
        home.write("dotfiles/claude/" + temporaryFilePrefix("settings.json") + "Cc22Dd", "{"),
        home.write("autostart/" + temporaryFilePrefix("vantrelle.desktop") + "Ee33Ff", "["),
    };
    const auto notOurs = home.write(".claude/settings.json.Q1w2E3", "Claude Code's, or the user's");

    removeStaleTemporaryFilesBeside({home / ".claude/settings.json", home / "autostart/vantrelle.desktop"});

    for (const auto& file : leftovers) EXPECT_FALSE(fs::exists(file)) << file;
    EXPECT_TRUE(fs::exists(notOurs)) << "the earlier version's shape is only swept in our own folders";
    EXPECT_TRUE(fs::is_symlink(home / ".claude/settings.json"));
}

}  // namespace
}  // namespace vantrelle
