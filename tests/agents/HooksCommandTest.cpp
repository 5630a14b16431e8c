#include <gtest/gtest.h>

#include "AgentsTestSupport.h"
#include "agents/ClaudeHooks.h"
#include "agents/HooksCommand.h"
#include "fakes/TempDir.h"

namespace vantrelle {
namespace {

using testing::TempDir;

class HooksCommandTest : public ::testing::Test {
protected:
    CommandResult run(std::vector<std::string> arguments) const { return runHooksCommand(arguments, hooks); }
    std::string file() const { return (dir / ".claude/settings.json").string(); }

    TempDir dir;
    AppPaths paths = testing::homeIn(dir.path());
    MapEnvironment environment;
    ClaudeHooks hooks{paths, environment};
};

TEST_F(HooksCommandTest, EachVerbSaysWhatItDidAndExitsZero) {
    const std::pair<const char*, std::string> steps[] = {
        {"uninstall", "Claude Code hooks aren't installed in " + file() + "; nothing to remove.\n"},
        {"install", "Claude Code hooks installed in " + file() + ".\n"},
        {"install", "Claude Code hooks are already installed in " + file() + ".\n"},
        {"uninstall", "Claude Code hooks removed from " + file() + ".\n"},
        {"status", "Claude Code hooks are not installed in " + file() + ".\n"},
    };
    dir.write(".claude/settings.json", "{\"model\": \"opus\"}\n");
    for (const auto& [verb, out] : steps) {
        const auto result = run({verb});
        EXPECT_EQ(result.status, 0) << verb;
        EXPECT_EQ(result.out, out);
        EXPECT_EQ(result.err, "");
    }
    EXPECT_EQ(dir.read(".claude/settings.json"), "{\"model\": \"opus\"}\n");
}

TEST_F(HooksCommandTest, ARefusalExitsOneWithTheSwitchsOwnMessage) {
    dir.write(".claude/settings.json", R"({"hooks": "mine"})");
    const auto install = run({"install"});
    EXPECT_EQ(install.status, 1);
    EXPECT_EQ(install.err, *hooks.install() + "\n");
}

TEST_F(HooksCommandTest, AForeignStatusLineIsKeptUnlessReplacedAndUninstallTakesOnlyOurs) {
    const std::string foreign = R"({"statusLine": {"type": "command", "command": "~/bin/myline"}, "x": 1})";
    dir.write(".claude/settings.json", foreign);
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
        EXPECT_EQ(dir.read(".claude/settings.json") == foreign, step.unchanged) << what;
        EXPECT_EQ(hooks.statusLineStatus().state, step.after) << what;
    }
    // The user's own line survives in the backup made before it was replaced.
    EXPECT_EQ(dir.read(".claude/settings.json.vantrelle-backup"), foreign);
}

}  // namespace
}  // namespace vantrelle
