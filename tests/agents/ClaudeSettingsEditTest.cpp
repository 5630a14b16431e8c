#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>

#include "agents/ClaudeSettingsEdit.h"

namespace vantrelle {
namespace {

using Json = nlohmann::ordered_json;
using Outcome = ClaudeSettingsEdit::Outcome;

const std::string kCommand = "{ cat; echo; } >> \"$HOME/.local/share/Vantrelle/claude-events.jsonl\"";

// Files as people and tools write them. Each must come back byte for byte after install and uninstall.
TEST(ClaudeSettingsEdit, InstallThenUninstallGivesBackTheSameBytes) {
    const std::pair<const char*, std::string> files[] = {
        {"Claude Code's layout", "{\n  \"model\": \"opus\",\n  \"cleanupPeriodDays\": 1e2\n}\n"},
        {"four spaces",
         "{\n    \"permissions\": {\n        \"allow\": [\"Bash(ls)\"]\n    },\n    \"z\": 1\n}"},
        {"crlf", "{\r\n  \"env\": {\"A\": \"1\"},\r\n  \"n\": -0\r\n}\r\n"},
        {"one line", R"({"z":1,"a":[1.50, 2E+3, 12345678901234567890123]})"},
        {"indented object", "  {\n    \"a\": 1\n  }"},
        {"escapes and unicode", "{\"s\": \"\\u00e9\\/x\", \"é\": \"\\ud83d\\ude00\"}"},
        {"byte order mark", "\xEF\xBB\xBF{\"a\": 1}"},
        {"foreign hooks", R"({
  "hooks": {
    "Stop": [{"hooks": [{"type": "command", "command": "say done", "timeout": 1e1}]}],
    "PreToolUse": [{"matcher": "Bash", "hooks": [{"type": "command", "command": "audit"}]}]
  },
  "after": true
})"},
        {"foreign notification, compact",
         R"({"hooks":{"Notification":[{"hooks":[{"type":"command","command":"x"}]}]}})"},
        {"odd event shapes",
         R"({"hooks": {"PreToolUse": "not an array", "PostToolUse": [1, "two"], "Odd": {}}})"},
        {"empty arrays kept when foreign ones follow",
         R"({"hooks": {"Stop": [{"hooks": []}], "Notification": [{"matcher": ""}]}})"},
        {"duplicate keys",
         R"({"hooks": {"Stop": "first"}, "a": 1, "hooks": {"Stop": [{"hooks": []}]  , "x": 2}})"},
    };
    for (const auto& [name, original] : files) {
        SCOPED_TRACE(name);
        const auto installed = installClaudeHooks(original, kCommand);
        ASSERT_EQ(installed.outcome, Outcome::changed) << installed.reason;
        ASSERT_EQ(claudeSettingsProblem(installed.text), std::nullopt) << installed.text;
        EXPECT_TRUE(claudeHooksInstalled(installed.text)) << installed.text;
        EXPECT_EQ(installClaudeHooks(installed.text, kCommand).outcome, Outcome::unchanged)
            << "installed twice";
        EXPECT_EQ(uninstallClaudeHooks(installed.text).text, original) << "after install:\n"
                                                                       << installed.text;
    }
}

TEST(ClaudeSettingsEdit, WhatIsAddedFollowsTheFilesIndentationAndLineEnds) {
    const auto fourSpaces = installClaudeHooks("{\n    \"a\": 1\n}\n", kCommand).text;
    EXPECT_TRUE(
        fourSpaces.starts_with("{\n    \"a\": 1,\n    \"hooks\": {\n        \"Notification\": [\n"
                               "            {\n                \"matcher\": "))
        << fourSpaces;

    const auto crlf = installClaudeHooks("{\r\n  \"a\": 1\r\n}\r\n", kCommand).text;
    EXPECT_EQ(std::count(crlf.begin(), crlf.end(), '\n'), std::count(crlf.begin(), crlf.end(), '\r')) << crlf;
}

TEST(ClaudeSettingsEdit, ANewFileHoldsOnlyOurHooksInClaudeCodesOwnLayout) {
    for (const char* blank : {"", " \n\t\r\n"}) {
        const auto edit = installClaudeHooks(blank, kCommand);
        ASSERT_EQ(edit.outcome, Outcome::changed);
        const Json settings = Json::parse(edit.text);
        const Json& notification = settings["hooks"]["Notification"][0];
        EXPECT_EQ(notification.begin().key(), "matcher");
        EXPECT_EQ(notification["matcher"], "permission_prompt|idle_prompt|elicitation_dialog");
        EXPECT_EQ(notification["hooks"][0],
                  (Json{{"type", "command"}, {"command", kCommand}, {"timeout", 5}}));
        EXPECT_EQ(edit.text.substr(0, 16), "{\n  \"hooks\": {\n ");
    }
}

TEST(ClaudeSettingsEdit, OurGroupsMoveToTheEndAndForeignOnesStayWhereTheyAre) {
    const std::string ours =
        R"({"hooks": [{"type": "command", "command": "cat >> ~/Vantrelle/claude-events.jsonl"}]})";
    const std::string text = R"({"hooks": {"Stop": [)" + ours + R"(, {"hooks": [{"command": "say done"}]}],
        "SessionStart": [)" + ours +
                             R"(]}})";
    const auto edit = installClaudeHooks(text, kCommand);
    ASSERT_EQ(edit.outcome, Outcome::changed);
    const Json hooks = Json::parse(edit.text)["hooks"];
    ASSERT_EQ(hooks["Stop"].size(), 2u);
    EXPECT_EQ(hooks["Stop"][1]["hooks"][0]["command"], kCommand);
    EXPECT_FALSE(hooks.contains("SessionStart")) << "an event left with nothing goes";
}

TEST(ClaudeSettingsEdit, OursIsTakenOutWhateverElseTheHooksHoldAndNothingElseIsTouched) {
    const std::string ours = R"({"hooks": [{"command": "x >> Vantrelle/claude-events.jsonl"}]})";
    const std::pair<std::string, std::string> rows[] = {
        // Beside an event that is not an array; amid odd elements of its array.
        {R"({"hooks": {"Stop": "user's", "Notification": [)" + ours + "]}}",
         R"({"hooks": {"Stop": "user's"}})"},
        {R"({"hooks": {"Stop": [1, )" + ours + R"(, "two"]}})", R"({"hooks": {"Stop": [1, "two"]}})"},
    };
    for (const auto& [text, removed] : rows) {
        ASSERT_TRUE(claudeHooksInstalled(text));
        EXPECT_EQ(uninstallClaudeHooks(text).text, removed);
    }
    for (const char* text :
         {"", R"({"hooks": {}})", R"({"hooks": {"Stop": [{"hooks": [{"command": "x"}]}]}})"})
        EXPECT_EQ(uninstallClaudeHooks(text).outcome, Outcome::unchanged) << text;
}

TEST(ClaudeSettingsEdit, InstallSaysWhatShapeItFoundAndUninstallLeavesItAlone) {
    const std::pair<const char*, const char*> rows[] = {
        {R"({"hooks": "Vantrelle/claude-events.jsonl"})", R"("hooks" is a string, not an object)"},
        {R"({"hooks": [{"Stop": []}]})", R"("hooks" is an array, not an object)"},
        {R"({"hooks": null})", R"("hooks" is null, not an object)"},
        {R"({"hooks": {"Stop": {"hooks": []}}})", R"("Stop" in "hooks" is an object, not an array)"},
        {R"({"hooks": {"Notification": "x", "Stop": []}})",
         R"("Notification" in "hooks" is a string, not an array)"},
    };
    for (const auto& [text, reason] : rows) {
        SCOPED_TRACE(text);
        const auto install = installClaudeHooks(text, kCommand);
        EXPECT_EQ(install.outcome, Outcome::refused);
        EXPECT_EQ(install.reason, reason);
        EXPECT_EQ(uninstallClaudeHooks(text).outcome, Outcome::unchanged);
        EXPECT_FALSE(claudeHooksInstalled(text));
    }
}

std::string nested(std::size_t depth) {
    return "{\"a\": " + std::string(depth - 1, '[') + std::string(depth - 1, ']') + "}";
}

TEST(ClaudeSettingsEdit, ProblemsAreNamedInPlainWords) {
    const struct {
        const char* name;
        std::string text;
        std::optional<std::string> problem;
    } rows[] = {
        {"blank", " \r\n\t", std::nullopt},
        {"trailing comma", "{\"model\": \"opus\",}", "it isn't valid JSON (line 1, column 18)"},
        {"second line", "{\n  \"a\": tru\n}", "it isn't valid JSON (line 2, column 11)"},
        {"two values", "{} {}", "it isn't valid JSON (line 1, column 4)"},
        {"top-level array", "[1, 2]", "it holds an array, not an object"},
        {"bad UTF-8", "{\"a\": \"\xff\"}", "it isn't valid JSON (line 1, column 8)"},
        {"nesting at the limit", nested(512), std::nullopt},
        {"nesting past the limit", nested(513), "it nests deeper than 512 levels"},
        {"nesting 100,000 deep", nested(100'000), "it nests deeper than 512 levels"},
        {"brackets in strings don't count", "{\"a\": \"" + std::string(1000, '[') + "\"}", std::nullopt},
    };
    for (const auto& row : rows) EXPECT_EQ(claudeSettingsProblem(row.text), row.problem) << row.name;
}

}  // namespace
}  // namespace vantrelle
