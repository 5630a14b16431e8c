#include <gtest/gtest.h>

#include <map>

#include "app/LegacyMigration.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::TempDir;

class LegacyMigrationTest : public ::testing::Test {
protected:
    LegacyMigration migration() {
        return LegacyMigration(clock, [this](const fs::path& p) -> std::optional<Date> {
            auto it = created.find(p);
            if (it == created.end()) return std::nullopt;
            return it->second;
        });
    }
    fs::path legacy() const { return dir / "Kestrand"; }
    fs::path current() const { return dir / "Vantrelle"; }

    TempDir dir;
    VirtualScheduler clock{Date{1'800'000'000}};
    std::map<fs::path, Date> created;
};

TEST_F(LegacyMigrationTest, MovesEverythingAndRemovesTheLegacyRoot) {
    dir.write("Kestrand/notes.json", "[1]");
    dir.write("Kestrand/screentime/2026-11-20.json", "{}");
    migration().migrate(legacy(), current());
    EXPECT_EQ(dir.read("Vantrelle/notes.json"), "[1]");
    EXPECT_EQ(dir.read("Vantrelle/screentime/2026-11-20.json"), "{}");
    EXPECT_FALSE(fs::exists(legacy()));
}

TEST_F(LegacyMigrationTest, SubFolderOnBothSidesMergesAndTheEmptiedSourceGoes) {
    dir.write("Kestrand/screentime/2026-11-19.json", "old day");
    dir.write("Vantrelle/screentime/2026-11-22.json", "new day");
    migration().migrate(legacy(), current());
    EXPECT_EQ(dir.read("Vantrelle/screentime/2026-11-19.json"), "old day");
    EXPECT_EQ(dir.read("Vantrelle/screentime/2026-11-22.json"), "new day");
    EXPECT_FALSE(fs::exists(legacy()));
}

TEST_F(LegacyMigrationTest, AFreshTargetIsReplacedAndAnOlderOneWins) {
    dir.write("Kestrand/tasks.json", "legacy tasks");
    dir.write("Kestrand/notes.json", "legacy notes");
    created[dir.write("Vantrelle/tasks.json", "first-launch tasks")] = clock.now() - 599;
    created[dir.write("Vantrelle/notes.json", "user's newer notes")] = clock.now() - 600;
    migration().migrate(legacy(), current());
    EXPECT_EQ(dir.read("Vantrelle/tasks.json"), "legacy tasks");
    EXPECT_EQ(dir.read("Vantrelle/notes.json"), "user's newer notes");
    // The kept legacy file keeps the legacy root in place.
    EXPECT_EQ(dir.read("Kestrand/notes.json"), "legacy notes");
    EXPECT_FALSE(fs::exists(legacy() / "tasks.json"));
}

TEST_F(LegacyMigrationTest, UnreadableCreationDateCountsAsOld) {
    dir.write("Kestrand/shelf.json", "legacy");
    dir.write("Vantrelle/shelf.json", "current");  // no date known
    migration().migrate(legacy(), current());
    EXPECT_EQ(dir.read("Vantrelle/shelf.json"), "current");
}

TEST_F(LegacyMigrationTest, NoLegacyRootMeansNoWorkAndASecondRunIsANoOp) {
    migration().migrate(legacy(), current());
    EXPECT_FALSE(fs::exists(current())) << "a clean install creates nothing";

    dir.write("Kestrand/notes.json", "x");
    migration().migrate(legacy(), current());
    migration().migrate(legacy(), current());
    EXPECT_EQ(dir.read("Vantrelle/notes.json"), "x");
}

TEST_F(LegacyMigrationTest, AFileFacingAFolderIsLeftAlone) {
    dir.write("Kestrand/Converted", "a file");
    dir.write("Vantrelle/Converted/a.png", "png");
    migration().migrate(legacy(), current());
    EXPECT_EQ(dir.read("Vantrelle/Converted/a.png"), "png");
    EXPECT_EQ(dir.read("Kestrand/Converted"), "a file");
}

TEST(LegacyMigrationDates, ReadsTheBirthTimeWhereTheFileSystemKeepsOne) {
    TempDir dir;
    const auto file = dir.write("f", "x");
    const auto date = LegacyMigration::fileCreationDate(file);
    if (!date) GTEST_SKIP() << "this file system records no birth time";
    EXPECT_GT(date->seconds, 1.6e9);
    EXPECT_FALSE(LegacyMigration::fileCreationDate(dir / "missing"));
}

}  // namespace
}  // namespace vantrelle
