#include <gtest/gtest.h>

#include "AgentsTestSupport.h"
#include "agents/ClaudeHooks.h"
#include "agents/HooksCommand.h"
#include "fakes/TempDir.h"

namespace vantrelle {
namespace {

namespace fs = std::filesystem;
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
    struct Step {
        std::vector<std::string> arguments;
        std::string out;
    };
    const Step steps[] = {
        {{"status"}, "Claude Code hooks are not installed in " + file() + ".\n"},
        {{"uninstall"}, "Claude Code hooks aren't installed in " + file() + "; nothing to remove.\n"},
        {{"install"}, "Claude Code hooks installed in " + file() + ".\n"},
        {{"status"}, "Claude Code hooks are installed in " + file() + ".\n"},
        {{"install"}, "Claude Code hooks are already installed in " + file() + ".\n"},
        {{"uninstall"}, "Claude Code hooks removed from " + file() + ".\n"},
        {{"status"}, "Claude Code hooks are not installed in " + file() + ".\n"},
    };
    dir.write(".claude/settings.json", "{\"model\": \"opus\"}\n");
    for (const auto& [arguments, out] : steps) {
        const auto result = run(arguments);
        EXPECT_EQ(result.status, 0) << arguments[0];
        EXPECT_EQ(result.out, out);
        EXPECT_EQ(result.err, "");
    }
    EXPECT_EQ(dir.read(".claude/settings.json"), "{\"model\": \"opus\"}\n");
}

TEST_F(HooksCommandTest, ARefusalExitsOneWithTheSwitchsOwnMessage) {
    dir.write(".claude/settings.json", R"({"hooks": "mine"})");
    const auto install = run({"install"});
    EXPECT_EQ(install.status, 1);
    EXPECT_EQ(install.out, "");
    EXPECT_EQ(install.err, *hooks.install() + "\n");

    dir.write(".claude/settings.json", "[]");
    for (const char* verb : {"status", "install", "uninstall"}) {
        const auto result = run({verb});
        EXPECT_EQ(result.status, 1) << verb;
        EXPECT_TRUE(result.err.starts_with("Couldn't read your Claude Code settings in " + file() +
                                           ": it holds an array, not an object."))
            << result.err;
    }
}

TEST_F(HooksCommandTest, HelpAndUnknownArguments) {
    const struct {
        std::vector<std::string> arguments;
        int status;
        std::string firstLine;
    } cases[] = {
        {{"--help"}, 0, "usage: vantrelle hooks status|install|uninstall [--statusline [--replace]]"},
        {{}, 2, "vantrelle hooks: say what to do"},
        {{"enable"}, 2, "vantrelle hooks: unknown argument \"enable\""},
    };
    for (const auto& [arguments, status, firstLine] : cases) {
        const auto result = run(arguments);
        const std::string& text = status == 0 ? result.out : result.err;
        EXPECT_EQ(result.status, status) << firstLine;
        EXPECT_EQ(text.substr(0, text.find('\n')), firstLine);
        EXPECT_NE(text.find(file()), std::string::npos) << "the usage names the settings file";
    }
    EXPECT_FALSE(fs::exists(file())) << "help and mistakes touch nothing";
}

}  // namespace
}  // namespace vantrelle
