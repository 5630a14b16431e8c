#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "agents/ClaudeStatusLineSwitch.h"

namespace vantrelle {
namespace {

constexpr const char* kOurs = "/opt/vantrelle/bin/vantrelle statusline";

TEST(StatusLineInstallTest, CommandsAreOursOnlyWhenTheyRunVantrelleStatusline) {
    for (const char* ours : {kOurs, "vantrelle statusline", "\"/a b/vantrelle\" statusline --format {model}"})
        EXPECT_TRUE(isOurStatusLineCommand(ours)) << ours;
    for (const char* theirs : {"", "bun x some-tool statusline", "vantrelle usage", "vantrelle statuslines"})
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

}  // namespace
}  // namespace vantrelle
