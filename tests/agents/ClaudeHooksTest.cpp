#include <gtest/gtest.h>
#include <sys/stat.h>

#include <functional>
#include <nlohmann/json.hpp>

#include "AgentsTestSupport.h"
#include "agents/ClaudeHooks.h"
#include "fakes/TempDir.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;
using testing::TempDir;

class ClaudeHooksTest : public ::testing::Test {
protected:
    ClaudeHooks hooks() const { return ClaudeHooks(paths, environment); }
    fs::path file() const { return dir / "home/.claude/settings.json"; }
    fs::path backup() const { return dir / "home/.claude/settings.json.vantrelle-backup"; }
    std::string text() const { return dir.read("home/.claude/settings.json"); }
    void writeSettings(std::string_view contents) const { dir.write("home/.claude/settings.json", contents); }
    std::string backupText() const { return dir.read("home/.claude/settings.json.vantrelle-backup"); }
    static fs::perms mode(const fs::path& path) { return fs::status(path).permissions() & fs::perms::mask; }
    // What the folder holds besides the settings and the backup: temporary files must not be left.
    std::vector<std::string> strayFiles() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(file().parent_path())) {
            const auto name = entry.path().filename().string();
            if (name != "settings.json" && name != "settings.json.vantrelle-backup") names.push_back(name);
        }
        return names;
    }
    std::string unreadable(std::string_view reason) const {
        return "Couldn't read your Claude Code settings in " + file().string() + ": " + std::string(reason) +
               ". Nothing was changed.";
    }

    TempDir dir;
    AppPaths paths = testing::homeIn(dir / "home");
    MapEnvironment environment;
};

TEST_F(ClaudeHooksTest, InstallOnAMissingFileCreatesOnlyTheHooksAndNoBackup) {
    ASSERT_EQ(hooks().install(), std::nullopt);
    EXPECT_EQ(Json::parse(text())["hooks"]["Notification"][0]["hooks"][0]["command"],
              "{ cat; echo; } >> \"$HOME/.local/share/Vantrelle/claude-events.jsonl\" 2>/dev/null; exit 0");
    EXPECT_FALSE(fs::exists(backup()));
    EXPECT_TRUE(fs::is_directory(dir / "home/.local/share/Vantrelle"));
    EXPECT_TRUE(strayFiles().empty());
}

// The bytes themselves are the edit's concern (ClaudeSettingsEditTest); here, the file and its backup.
TEST_F(ClaudeHooksTest, UninstallGivesBackTheFileAndTheBackupHoldsItAsBeforeOurFirstChange) {
    const std::string original = "{\n    \"model\": \"opus\"\n}\n";
    writeSettings(original);
    ASSERT_EQ(hooks().uninstall(), std::nullopt);
    EXPECT_FALSE(fs::exists(backup())) << "nothing of ours to remove: nothing written";
    ASSERT_EQ(hooks().install(), std::nullopt);
    const std::string installed = text();
    ASSERT_EQ(hooks().install(), std::nullopt);
    EXPECT_EQ(text(), installed) << "installing again changes nothing";
    ASSERT_EQ(hooks().uninstall(), std::nullopt);
    EXPECT_EQ(text(), original);
    EXPECT_FALSE(hooks().isInstalled());
    EXPECT_TRUE(strayFiles().empty());

    // The user edits the file; later changes of ours never replace the first backup.
    writeSettings(R"({"model": "sonnet", "hooks": {"Stop": []}})");
    ASSERT_EQ(hooks().install(), std::nullopt);
    ASSERT_EQ(hooks().uninstall(), std::nullopt);
    EXPECT_EQ(backupText(), original);
    EXPECT_EQ(text(), R"({"model": "sonnet"})") << "the emptied event goes, and then the empty hooks";
}

TEST_F(ClaudeHooksTest, APrivateFileStaysPrivateAndSoDoesItsBackup) {
    writeSettings(R"({"apiKeyHelper": "secret"})");
    fs::permissions(file(), fs::perms::owner_read | fs::perms::owner_write);
    ASSERT_EQ(hooks().install(), std::nullopt);
    EXPECT_EQ(mode(file()), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(mode(backup()), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(ClaudeHooksTest, ALinkedFileStaysALinkAndItsTargetChanges) {
    dir.write("dotfiles/claude.json", R"({"model": "opus"})");
    fs::create_directories(file().parent_path());
    fs::create_symlink("../../dotfiles/claude.json", file());
    ASSERT_EQ(hooks().install(), std::nullopt);
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(file())));
    EXPECT_NE(dir.read("dotfiles/claude.json").find(ClaudeHooks::kMarker), std::string::npos);
    EXPECT_EQ(backupText(), R"({"model": "opus"})");
    ASSERT_EQ(hooks().uninstall(), std::nullopt);
    EXPECT_TRUE(fs::is_symlink(fs::symlink_status(file())));
    EXPECT_EQ(dir.read("dotfiles/claude.json"), R"({"model": "opus"})");
}

TEST_F(ClaudeHooksTest, AReadOnlyFileIsRefusedWithAMessageThatNamesIt) {
    const std::string original = R"({"model": "opus"})";
    writeSettings(original);
    fs::permissions(file(), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    const auto failure = hooks().install();
    ASSERT_TRUE(failure.has_value());
    EXPECT_NE(failure->find("read-only"), std::string::npos) << *failure;
    EXPECT_EQ(text(), original);
    EXPECT_TRUE(strayFiles().empty());
}

TEST_F(ClaudeHooksTest, UnparsableJsonIsLeftInPlaceWithAMessageThatSaysWhere) {
    const std::string broken = "{\"model\": \"opus\",}";
    writeSettings(broken);
    const std::string message = unreadable("it isn't valid JSON (line 1, column 18)");
    EXPECT_EQ(hooks().install(), message);
    EXPECT_EQ(hooks().uninstall(), message);
    EXPECT_EQ(text(), broken);
    EXPECT_FALSE(fs::exists(backup()));
    EXPECT_TRUE(strayFiles().empty()) << "nothing moved aside: Claude Code reads this file too";
    EXPECT_TRUE(hooks().status().problem.value_or("").ends_with("(line 1, column 18)."));
}

TEST_F(ClaudeHooksTest, WhatCannotBeEditedIsNamedAndLeftAsItWas) {
    const struct {
        const char* name;
        std::function<void()> arrange;
        std::string message;
    } rows[] = {
        // Opening a pipe with no writer would wait forever: the test would hang, not fail.
        {"a named pipe",
         [&] {
             fs::create_directories(file().parent_path());
             ASSERT_EQ(::mkfifo(file().c_str(), 0600), 0);
         },
         unreadable("it is a named pipe, not a regular file")},
        {"a folder", [&] { fs::create_directories(file()); },
         unreadable("it is a folder, not a file (Is a directory)")},
        {"far too large to be settings",
         [&] {
             writeSettings("{}");
             fs::resize_file(file(), 17 * 1024 * 1024);  // sparse: costs no disk
         },
         unreadable("it is larger than 16 MB, too large for a settings file")},
        {"the backup's name taken",
         [&] {
             writeSettings(R"({"model": "opus"})");
             fs::create_directories(backup());
         },
         "Couldn't back up your Claude Code settings to " + backup().string() +
             ": it is a folder, not a file (Is a directory). Nothing was changed."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        fs::remove_all(dir / "home");
        row.arrange();
        const auto type = fs::symlink_status(file()).type();
        const auto size = type == fs::file_type::regular ? fs::file_size(file()) : 0;
        EXPECT_EQ(hooks().install(), row.message);
        EXPECT_EQ(fs::symlink_status(file()).type(), type);
        if (type == fs::file_type::regular) {
            EXPECT_EQ(fs::file_size(file()), size);
        }
        EXPECT_FALSE(fs::is_regular_file(backup()));
    }
}

}  // namespace
}  // namespace vantrelle
