#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "agents/ClaudeHooks.h"
#include "fakes/TempDir.h"

namespace vantrelle {
namespace {

using Json = nlohmann::json;
using testing::TempDir;

class ClaudeHooksTest : public ::testing::Test {
protected:
    ClaudeHooksTest() {
        paths.home = dir / "home";
        paths.dataHome = dir / "home/.local/share";
    }
    ClaudeHooks hooks() const { return ClaudeHooks(paths, environment); }
    Json settings() const { return Json::parse(dir.read("home/.claude/settings.json")); }
    void writeSettings(std::string_view text) const { dir.write("home/.claude/settings.json", text); }
    bool backupExists() const {
        return std::filesystem::exists(dir / "home/.claude/settings.json.vantrelle-backup");
    }

    TempDir dir;
    AppPaths paths;
    MapEnvironment environment;
};

TEST_F(ClaudeHooksTest, InstallOnAMissingFileCreatesOnlyTheHooks) {
    ASSERT_EQ(hooks().install(), std::nullopt);
    const Json s = settings();
    EXPECT_EQ(s.size(), 1u);
    ASSERT_EQ(s["hooks"]["Notification"].size(), 1u);
    const Json& group = s["hooks"]["Notification"][0];
    EXPECT_EQ(group["matcher"], "permission_prompt|idle_prompt|elicitation_dialog");
    EXPECT_EQ(group["hooks"][0]["type"], "command");
    EXPECT_EQ(group["hooks"][0]["timeout"], 5);
    EXPECT_EQ(group["hooks"][0]["command"],
              "{ cat; echo; } >> \"$HOME/.local/share/Vantrelle/claude-events.jsonl\" 2>/dev/null; exit 0");
    EXPECT_FALSE(s["hooks"]["Stop"][0].contains("matcher"));
    EXPECT_FALSE(backupExists());
    EXPECT_TRUE(hooks().isInstalled());
    EXPECT_TRUE(std::filesystem::is_directory(dir / "home/.local/share/Vantrelle"));
    EXPECT_EQ(dir.read("home/.claude/settings.json").find("\\/"), std::string::npos)
        << "slashes stay unescaped";
}

TEST_F(ClaudeHooksTest, BlankFileCountsAsEmpty) {
    writeSettings(" \n\t\r\n");
    ASSERT_EQ(hooks().install(), std::nullopt);
    EXPECT_TRUE(backupExists());
    EXPECT_EQ(settings().size(), 1u);
}

TEST_F(ClaudeHooksTest, UnreadableJsonIsLeftAloneWithAPlainMessage) {
    const std::string broken = "{\"model\": \"opus\",}";
    writeSettings(broken);
    EXPECT_EQ(hooks().install(),
              "Couldn't read your Claude Code settings: it isn't valid JSON. Nothing was changed.");
    EXPECT_EQ(dir.read("home/.claude/settings.json"), broken);
    EXPECT_FALSE(backupExists());
    EXPECT_FALSE(hooks().isInstalled());
    EXPECT_TRUE(hooks().uninstall().has_value());
    writeSettings("[1, 2]");
    EXPECT_TRUE(hooks().install().has_value()) << "a top level that is not an object is unreadable too";
}

TEST_F(ClaudeHooksTest, ForeignHooksAndKeysStayInOrderAndInstallingTwiceDoesNotDuplicate) {
    writeSettings(R"({"model": "opus", "env": {"A": "1"},
        "hooks": {"Stop": [{"hooks": [{"type": "command", "command": "say done"}]}],
                  "PreToolUse": [{"matcher": "Bash", "hooks": [{"type": "command", "command": "audit"}]}],
                  "Odd": "not an array"}})");
    ASSERT_EQ(hooks().install(), std::nullopt);
    ASSERT_EQ(hooks().install(), std::nullopt);
    const Json s = settings();
    EXPECT_EQ(s["model"], "opus");
    EXPECT_EQ(s["env"]["A"], "1");
    ASSERT_EQ(s["hooks"]["Stop"].size(), 2u);
    EXPECT_EQ(s["hooks"]["Stop"][0]["hooks"][0]["command"], "say done");
    EXPECT_NE(s["hooks"]["Stop"][1]["hooks"][0]["command"].get<std::string>().find(ClaudeHooks::kMarker),
              std::string::npos);
    EXPECT_EQ(s["hooks"]["Notification"].size(), 1u);
    EXPECT_EQ(s["hooks"]["PreToolUse"][0]["hooks"][0]["command"], "audit");
    EXPECT_EQ(s["hooks"]["Odd"], "not an array");

    // The backup holds the file as it stood before the last edit: after the first install.
    const Json backup = Json::parse(dir.read("home/.claude/settings.json.vantrelle-backup"));
    EXPECT_EQ(backup["hooks"]["Stop"].size(), 2u);
}

TEST_F(ClaudeHooksTest, UninstallRemovesOnlyOursAndDropsAnEmptyHooksKey) {
    writeSettings(R"({"model": "opus"})");
    ASSERT_EQ(hooks().install(), std::nullopt);
    ASSERT_EQ(hooks().uninstall(), std::nullopt);
    const Json s = settings();
    EXPECT_FALSE(s.contains("hooks"));
    EXPECT_EQ(s["model"], "opus");
    EXPECT_FALSE(hooks().isInstalled());
}

TEST_F(ClaudeHooksTest, UninstallWithNothingToRemoveKeepsTheFileByteForByte) {
    const std::string withoutHooks = "{\n    \"model\":\"opus\"   }\n";
    writeSettings(withoutHooks);
    ASSERT_EQ(hooks().uninstall(), std::nullopt);
    EXPECT_EQ(dir.read("home/.claude/settings.json"), withoutHooks);
    EXPECT_FALSE(backupExists());

    const std::string foreignOnly = R"({"hooks": {"Stop": [{"hooks": [{"command": "say done"}]}]}})";
    writeSettings(foreignOnly);
    ASSERT_EQ(hooks().uninstall(), std::nullopt);
    EXPECT_EQ(dir.read("home/.claude/settings.json"), foreignOnly);
}

TEST_F(ClaudeHooksTest, AnyCommandWithTheMarkerCountsAsInstalled) {
    writeSettings(
        R"({"hooks": {"SessionStart": [{"hooks": [{"command": "tee -a ~/x/Vantrelle/claude-events.jsonl"}]}]}})");
    EXPECT_TRUE(hooks().isInstalled());
    writeSettings(R"({"hooks": {"SessionStart": {"hooks": "Vantrelle/claude-events.jsonl"}}})");
    EXPECT_FALSE(hooks().isInstalled());
}

TEST_F(ClaudeHooksTest, OverridesMoveTheFilesButNotTheCommand) {
    environment.set("VANTRELLE_CLAUDE_SETTINGS", (dir / "elsewhere/settings.json").string());
    environment.set("VANTRELLE_CLAUDE_EVENTS", (dir / "events/e.jsonl").string());
    const ClaudeHooks h = hooks();
    EXPECT_EQ(h.settingsFile(), dir / "elsewhere/settings.json");
    EXPECT_EQ(h.eventsFile(), dir / "events/e.jsonl");
    EXPECT_EQ(h.backupFile(), dir / "elsewhere/settings.json.vantrelle-backup");
    EXPECT_NE(h.command().find("$HOME/.local/share/Vantrelle/claude-events.jsonl"), std::string::npos);

    AppPaths custom = paths;
    custom.dataHome = dir / "my data";
    EXPECT_NE(ClaudeHooks(custom, MapEnvironment{})
                  .command()
                  .find((dir / "my data/Vantrelle/claude-events.jsonl").string()),
              std::string::npos);
}

}  // namespace
}  // namespace vantrelle
