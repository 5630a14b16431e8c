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

TEST_F(LegacyMigrationTest, MovesEverythingMergingSubFoldersAndRemovesTheLegacyRoot) {
    dir.write("Kestrand/notes.json", "[1]");
    dir.write("Kestrand/screentime/2026-11-19.json", "old day");
    dir.write("Vantrelle/screentime/2026-11-22.json", "new day");
    migration().migrate(legacy(), current());
    EXPECT_EQ(dir.read("Vantrelle/notes.json"), "[1]");
    EXPECT_EQ(dir.read("Vantrelle/screentime/2026-11-19.json"), "old day");
    EXPECT_EQ(dir.read("Vantrelle/screentime/2026-11-22.json"), "new day");
    EXPECT_FALSE(fs::exists(legacy()));
}

TEST_F(LegacyMigrationTest, AFreshTargetIsReplacedAndAnOlderOneOrAFolderWins) {
    dir.write("Kestrand/tasks.json", "legacy tasks");
    dir.write("Kestrand/notes.json", "legacy notes");
    created[dir.write("Vantrelle/tasks.json", "first-launch tasks")] = clock.now() - 599;
    created[dir.write("Vantrelle/notes.json", "user's newer notes")] = clock.now() - 600;
    dir.write("Kestrand/shelf.json", "legacy shelf");
    dir.write("Vantrelle/shelf.json", "current shelf");  // no date known: counts as old
    dir.write("Kestrand/Converted", "a file");
    dir.write("Vantrelle/Converted/a.png", "png");
    migration().migrate(legacy(), current());
    EXPECT_EQ(dir.read("Vantrelle/tasks.json"), "legacy tasks");
    EXPECT_EQ(dir.read("Vantrelle/notes.json"), "user's newer notes");
    EXPECT_EQ(dir.read("Vantrelle/shelf.json"), "current shelf");
    EXPECT_EQ(dir.read("Vantrelle/Converted/a.png"), "png");
    EXPECT_EQ(dir.read("Kestrand/notes.json"), "legacy notes") << "a kept legacy file stays in place";
}

}  // namespace
}  // namespace vantrelle
