#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "AgentsTestSupport.h"
#include "agents/ClaudeStatusLineSwitch.h"
#include "agents/HooksCommand.h"
#include "fakes/TempDir.h"
#include "platform/VirtualScheduler.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
using testing::TempDir;

constexpr const char* kOurs = "/opt/vantrelle/bin/vantrelle statusline";

TEST(StatusLineInstallTest, CommandsAreOursOnlyWhenTheyRunVantrelleStatusline) {
    for (const char* ours : {kOurs, "vantrelle statusline", "\"/a b/vantrelle\" statusline --format {model}"})
        EXPECT_TRUE(isOurStatusLineCommand(ours)) << ours;
    for (const char* theirs :
         {"", "ccline", "bun x some-tool statusline", "vantrelle usage", "vantrelle statuslines"})
        EXPECT_FALSE(isOurStatusLineCommand(theirs)) << theirs;
}

TEST(StatusLineInstallTest, InstallingAndRemovingKeepsTheRestOfTheFileByteForByte) {
    const std::string before = "{\n    \"model\": \"opus\",\n    \"env\": {\"A\": 1.50}\n}\n";
    const auto installed = installClaudeStatusLine(before, kOurs, false);
    ASSERT_EQ(installed.outcome, ClaudeSettingsEdit::Outcome::changed);
    EXPECT_EQ(nlohmann::json::parse(installed.text)["statusLine"],
              (nlohmann::json{{"type", "command"}, {"command", kOurs}, {"padding", 0}}));
    EXPECT_EQ(installClaudeStatusLine(installed.text, kOurs, false).outcome,
              ClaudeSettingsEdit::Outcome::unchanged);
    const auto removed = uninstallClaudeStatusLine(installed.text);
    ASSERT_EQ(removed.outcome, ClaudeSettingsEdit::Outcome::changed);
    EXPECT_EQ(removed.text, before);
    EXPECT_EQ(uninstallClaudeStatusLine(before).outcome, ClaudeSettingsEdit::Outcome::unchanged);
}

class StatusLineSettingsTest : public ::testing::Test {
protected:
    CommandResult run(std::vector<std::string> arguments) const {
        return runHooksCommand(arguments, hooks, kOurs);
    }
    std::string settings() const { return dir.read(".claude/settings.json"); }
    fs::path backup() const { return dir / ".claude/settings.json.vantrelle-backup"; }

    TempDir dir;
    AppPaths paths = testing::homeIn(dir.path());
    MapEnvironment environment;
    ClaudeHooks hooks{paths, environment};
};

TEST_F(StatusLineSettingsTest, AForeignStatusLineIsKeptUnlessReplacedAndUninstallTakesOnlyOurs) {
    const std::string foreign = R"({"statusLine": {"type": "command", "command": "~/bin/myline"}, "x": 1})";
    dir.write(".claude/settings.json", foreign);
    const auto refused = run({"install", "--statusline"});
    EXPECT_NE(refused.err.find("\"~/bin/myline\""), std::string::npos) << refused.err;
    EXPECT_NE(refused.err.find("--replace"), std::string::npos) << refused.err;
    EXPECT_FALSE(fs::exists(backup()));
    struct Step {
        std::vector<std::string> arguments;
        int status;
        bool unchanged;  // the file as the user left it
        ClaudeStatusLine after;
    };
    const Step steps[] = {
        {{"status", "--statusline"}, 0, true, ClaudeStatusLine::foreign},
        {{"uninstall", "--statusline"}, 0, true, ClaudeStatusLine::foreign},
        {{"install", "--statusline"}, 1, true, ClaudeStatusLine::foreign},
        {{"uninstall", "--replace", "--statusline"}, 2, true, ClaudeStatusLine::foreign},
        {{"install", "--statusline", "--replace"}, 0, false, ClaudeStatusLine::ours},
        {{"install", "--statusline"}, 0, false, ClaudeStatusLine::ours},
        {{"uninstall", "--statusline"}, 0, false, ClaudeStatusLine::none},
    };
    for (const auto& step : steps) {
        const auto result = run(step.arguments);
        const std::string what = step.arguments[0] + " " + step.arguments[1];
        EXPECT_EQ(result.status, step.status) << what << result.err;
        EXPECT_EQ(settings() == foreign, step.unchanged) << what;
        EXPECT_EQ(hooks.statusLineStatus().state, step.after) << what;
    }
    EXPECT_NE(run({"install", "--statusline"}).out, "");
    // The user's own line survives in the backup made before it was replaced.
    EXPECT_EQ(dir.read(".claude/settings.json.vantrelle-backup"), foreign);
    EXPECT_EQ(nlohmann::json::parse(settings())["x"], 1);
}

TEST_F(StatusLineSettingsTest, TheSettingsSwitchLeavesAForeignLineAndSaysItIsThere) {
    dir.write(".claude/settings.json", R"({"statusLine": {"command": "myline"}})");
    InlineQueueFactory queues;
    VirtualScheduler scheduler;
    ClaudeStatusLineSwitch statusLine(hooks, kOurs, queues, scheduler);
    int changes = 0;
    const auto connection = statusLine.changed.connect([&] { ++changes; });
    statusLine.set(true);
    scheduler.runUntilIdle();
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(statusLine.isInstalled());
    EXPECT_EQ(statusLine.state(), ClaudeStatusLine::foreign);
    EXPECT_NE(statusLine.note().find("\"myline\""), std::string::npos) << statusLine.note();
    EXPECT_EQ(settings(), R"({"statusLine": {"command": "myline"}})");

    dir.write(".claude/settings.json", "{}");
    statusLine.set(true);
    scheduler.runUntilIdle();
    EXPECT_TRUE(statusLine.isInstalled());
    EXPECT_EQ(statusLine.note(), "");
    statusLine.set(false);
    scheduler.runUntilIdle();
    EXPECT_EQ(statusLine.state(), ClaudeStatusLine::none);
}

}  // namespace
}  // namespace vantrelle
