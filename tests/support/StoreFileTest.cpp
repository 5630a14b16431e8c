#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>

#include "fakes/LogCapture.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"
#include "support/StoreFile.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::LogCapture;
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
    LogCapture log;
    StoreFile store(file, "notes", clock);
    const auto text = store.read();
    ASSERT_EQ(text, "{\"a\": 1,}");
    store.setAside("it isn't valid JSON");

    const std::string aside = "store.json.unreadable-20270115T080000Z";
    EXPECT_EQ(testing::fileNamesIn(dir.path()), std::vector<std::string>{aside});
    EXPECT_EQ(dir.read(aside), "{\"a\": 1,}");
    EXPECT_NE(log.text().find("notes: moved unreadable " + file.string() + " aside to " +
                              (dir / aside).string() + " (it isn't valid JSON); starting from defaults"),
              std::string::npos)
        << log.text();
    ASSERT_TRUE(store.write("{}"));
    EXPECT_EQ(dir.read("store.json"), "{}");
}

TEST_F(StoreFileTest, OnlyTheNewestThreeCopiesAreKept) {
    const std::vector<std::pair<double, std::string>> setAsides = {
        {0, "first"}, {0.5, "same second"}, {3600, "an hour later"}, {86400, "a day later"}, {90000, "last"}};
    for (const auto& [after, contents] : setAsides) {
        clock.setNow(kMorning + after);
        dir.write("store.json", contents);
        StoreFile store(file, "notes", clock);
        ASSERT_TRUE(store.read().has_value()) << contents;
        store.setAside("test");
    }
    EXPECT_EQ(testing::fileNamesIn(dir.path()),
              (std::vector<std::string>{"store.json.unreadable-20270115T090000Z",
                                        "store.json.unreadable-20270116T080000Z",
                                        "store.json.unreadable-20270116T090000Z"}));
    EXPECT_EQ(dir.read("store.json.unreadable-20270116T090000Z"), "last");
    EXPECT_EQ(dir.read("store.json.unreadable-20270115T090000Z"), "an hour later");
}

TEST_F(StoreFileTest, TwoSetAsidesInOneSecondKeepBoth) {
    for (const char* contents : {"one", "two"}) {
        dir.write("store.json", contents);
        StoreFile store(file, "notes", clock);
        (void)store.read();
        store.setAside("test");
    }
    EXPECT_EQ(dir.read("store.json.unreadable-20270115T080000Z"), "one");
    EXPECT_EQ(dir.read("store.json.unreadable-20270115T080000Z-2"), "two");
}

TEST_F(StoreFileTest, WhatReadFinds) {
    struct Case {
        const char* name;
        std::function<void(TempDir&)> make;
        std::optional<std::string> text;
        bool movedAside;
    };
    const std::vector<Case> cases = {
        {"no file: a first run", [](TempDir&) {}, std::nullopt, false},
        {"white space only holds nothing to keep", [](TempDir& d) { d.write("store.json", " \n\t"); },
         std::nullopt, false},
        {"a folder where the file should be",
         [](TempDir& d) { fs::create_directories(d / "store.json/inner"); }, std::nullopt, true},
        {"a named pipe", [](TempDir& d) { ::mkfifo((d / "store.json").c_str(), 0600); }, std::nullopt, true},
        {"a file", [](TempDir& d) { d.write("store.json", "{}"); }, "{}", false},
    };
    for (const Case& c : cases) {
        TempDir folder;
        c.make(folder);
        StoreFile store(folder / "store.json", "notes", clock);
        EXPECT_EQ(store.read(), c.text) << c.name;
        const auto names = testing::fileNamesIn(folder.path());
        const bool aside = std::any_of(names.begin(), names.end(), [](const std::string& n) {
            return n.find(".unreadable-") != std::string::npos;
        });
        EXPECT_EQ(aside, c.movedAside) << c.name;
        if (c.movedAside) {
            EXPECT_FALSE(fs::exists(fs::symlink_status(folder / "store.json"))) << c.name;
        }
    }
}

TEST_F(StoreFileTest, AFileThatCannotBeMovedAsideIsNeverWrittenOver) {
    dir.write("store.json", "a file where a folder should be");
    const fs::path inner = dir / "store.json/data.json";  // its folder is a file: unreadable and immovable
    LogCapture log;
    StoreFile store(inner, "notes", clock);
    EXPECT_FALSE(store.read().has_value());
    const WriteResult written = store.write("{}");
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error(), "Couldn't write " + inner.string() +
                                   ": it couldn't be read nor moved aside, so it is left as it was");
    EXPECT_NE(log.text().find("notes: Couldn't move " + inner.string() + " aside: Not a directory"),
              std::string::npos)
        << log.text();
    EXPECT_EQ(dir.read("store.json"), "a file where a folder should be");
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

}  // namespace
}  // namespace vantrelle
