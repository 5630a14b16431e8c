#include <gtest/gtest.h>
#include <sys/stat.h>

#include "fakes/LogCapture.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "support/StoreFile.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::TempDir;

// 2027-01-15T08:00:00Z
constexpr Date kMorning{1'800'000'000.0};

class StoreFileTest : public ::testing::Test {
protected:
    TempDir dir;
    fs::path file = dir / "store.json";
    VirtualScheduler clock{kMorning};
};

TEST_F(StoreFileTest, AnUnusableFileIsMovedAsideWithItsContentsAndLogged) {
    dir.write("store.json", "{\"a\": 1,}");
    testing::LogCapture log;
    StoreFile store(file, "notes", clock);
    ASSERT_EQ(store.read(), "{\"a\": 1,}");
    store.setAside("it isn't valid JSON");

    const std::string aside = "store.json.unreadable-20270115T080000Z";
    EXPECT_EQ(testing::fileNamesIn(dir.path()), std::vector<std::string>{aside});
    EXPECT_EQ(dir.read(aside), "{\"a\": 1,}");
    EXPECT_NE(log.text().find("notes: moved unreadable " + file.string()), std::string::npos) << log.text();
    ASSERT_TRUE(store.write("{}"));
    EXPECT_EQ(dir.read("store.json"), "{}");
}

TEST_F(StoreFileTest, OnlyTheNewestThreeCopiesAreKeptAndTwoInOneSecondAreBoth) {
    const std::vector<std::pair<double, std::string>> setAsides = {
        {0, "first"}, {86400, "a day later"}, {90000, "last"}, {90000.5, "same second"}};
    for (const auto& [after, contents] : setAsides) {
        clock.setNow(kMorning + after);
        dir.write("store.json", contents);
        StoreFile store(file, "notes", clock);
        ASSERT_TRUE(store.read().has_value()) << contents;
        store.setAside("test");
    }
    EXPECT_EQ(testing::fileNamesIn(dir.path()),
              (std::vector<std::string>{"store.json.unreadable-20270116T080000Z",
                                        "store.json.unreadable-20270116T090000Z",
                                        "store.json.unreadable-20270116T090000Z-2"}));
    EXPECT_EQ(dir.read("store.json.unreadable-20270116T090000Z-2"), "same second");
}

TEST_F(StoreFileTest, WhatReadFinds) {
    dir.write("blank.json", " \n\t");
    fs::create_directories(dir / "folder.json/inner");
    ::mkfifo((dir / "pipe.json").c_str(), 0600);
    const struct {
        const char* file;
        bool movedAside;
    } rows[] = {
        {"missing.json", false},  // a first run
        {"blank.json", false},    // white space only holds nothing to keep
        {"folder.json", true},
        {"pipe.json", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.file);
        StoreFile store(dir / row.file, "notes", clock);
        EXPECT_EQ(store.read(), std::nullopt);
        EXPECT_EQ(testing::unreadableCopies(dir / row.file).size(), row.movedAside ? 1u : 0u);
        EXPECT_EQ(fs::exists(fs::symlink_status(dir / row.file)), row.file == std::string("blank.json"));
    }
}

TEST_F(StoreFileTest, AFileThatCannotBeMovedAsideIsNeverWrittenOver) {
    dir.write("store.json", "a file where a folder should be");
    const fs::path inner = dir / "store.json/data.json";  // its folder is a file: unreadable and immovable
    StoreFile store(inner, "notes", clock);
    EXPECT_FALSE(store.read().has_value());
    EXPECT_FALSE(store.write("{}"));
    EXPECT_EQ(dir.read("store.json"), "a file where a folder should be");
}

TEST_F(StoreFileTest, ASymlinkedStoreMovesTheLinkAsideAndLeavesItsTarget) {
    dir.write("dotfiles/store.json", "{oops");
    fs::create_directories(dir / "config");
    fs::create_symlink(dir / "dotfiles/store.json", dir / "config/store.json");
    StoreFile store(dir / "config/store.json", "notes", clock);
    ASSERT_EQ(store.read(), "{oops");
    store.setAside("test");
    EXPECT_TRUE(fs::is_symlink(dir / "config/store.json.unreadable-20270115T080000Z"));
    EXPECT_EQ(dir.read("dotfiles/store.json"), "{oops");
}

TEST_F(StoreFileTest, AReadOnlyStoreNeverMovesNorWrites) {
    dir.write("store.json", "{broken");
    StoreFile store(file, "wrapped", clock, /*readOnly=*/true);
    EXPECT_EQ(store.read(), "{broken");
    store.setAside("test");
    EXPECT_TRUE(store.write("{}"));
    EXPECT_EQ(testing::fileNamesIn(dir.path()), std::vector<std::string>{"store.json"});
    EXPECT_EQ(dir.read("store.json"), "{broken");
}

}  // namespace
}  // namespace vantrelle
