#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "agents/ClaudeSettingsEdit.h"

namespace vantrelle {
namespace {

using Json = nlohmann::ordered_json;
using Outcome = ClaudeSettingsEdit::Outcome;

const std::string kCommand = "{ cat; echo; } >> \"$HOME/.local/share/Vantrelle/claude-events.jsonl\"";

struct Case {
    const char* name;
    std::string text;
};

// Files as people and tools write them. Each must come back byte for byte after install and uninstall.
const Case kRoundTrips[] = {
    {"claude_code_layout", "{\n  \"model\": \"opus\",\n  \"cleanupPeriodDays\": 1e2\n}\n"},
    {"four_spaces", "{\n    \"permissions\": {\n        \"allow\": [\"Bash(ls)\"]\n    },\n    \"z\": 1\n}"},
    {"tabs", "{\n\t\"b\": 1,\n\t\"a\": 2\n}\n"},
    {"crlf", "{\r\n  \"env\": {\"A\": \"1\"},\r\n  \"n\": -0\r\n}\r\n"},
    {"one_line", R"({"z":1,"a":[1.50, 2E+3, 12345678901234567890123]})"},
    {"empty_object", "{}"},
    {"indented_object", "  {\n    \"a\": 1\n  }"},
    {"escapes_and_unicode", "{\"s\": \"\\u00e9\\/x\", \"é\": \"\\ud83d\\ude00\"}"},
    {"byte_order_mark", "\xEF\xBB\xBF{\"a\": 1}"},
    {"foreign_stop_hook", R"({
  "hooks": {
    "Stop": [
      {
        "hooks": [{"type": "command", "command": "say done", "timeout": 1e1}]
      }
    ],
    "PreToolUse": [{"matcher": "Bash", "hooks": [{"type": "command", "command": "audit"}]}]
  },
  "after": true
})"},
    {"foreign_notification_compact",
     R"({"hooks":{"Notification":[{"hooks":[{"type":"command","command":"x"}]}]}})"},
    {"odd_event_shapes",
     R"({"hooks": {"PreToolUse": "not an array", "PostToolUse": [1, "two"], "Odd": {}}})"},
    {"empty_wanted_arrays_kept_when_foreign_follow",
     R"({"hooks": {"Stop": [{"hooks": []}], "Notification": [{"matcher": ""}]}})"},
    {"duplicate_keys",
     R"({"hooks": {"Stop": "first"}, "a": 1, "hooks": {"Stop": [{"hooks": []}]  , "x": 2}})"},
};

class RoundTrip : public ::testing::TestWithParam<Case> {};

TEST_P(RoundTrip, InstallThenUninstallGivesBackTheSameBytes) {
    const std::string& original = GetParam().text;
    ASSERT_EQ(claudeSettingsProblem(original), std::nullopt);

    const auto installed = installClaudeHooks(original, kCommand);
    ASSERT_EQ(installed.outcome, Outcome::changed) << installed.reason;
    ASSERT_EQ(claudeSettingsProblem(installed.text), std::nullopt) << installed.text;
    EXPECT_TRUE(claudeHooksInstalled(installed.text)) << installed.text;

    const auto again = installClaudeHooks(installed.text, kCommand);
    EXPECT_EQ(again.outcome, Outcome::unchanged) << "installing twice changes nothing:\n" << again.text;

    const auto removed = uninstallClaudeHooks(installed.text);
    ASSERT_EQ(removed.outcome, Outcome::changed);
    EXPECT_EQ(removed.text, original) << "after install:\n" << installed.text;
    EXPECT_FALSE(claudeHooksInstalled(removed.text));
}

INSTANTIATE_TEST_SUITE_P(Files, RoundTrip, ::testing::ValuesIn(kRoundTrips),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(ClaudeSettingsEdit, WhatIsAddedFollowsTheFilesIndentationAndLineEnds) {
    const auto fourSpaces = installClaudeHooks("{\n    \"a\": 1\n}\n", kCommand);
    EXPECT_TRUE(
        fourSpaces.text.starts_with("{\n    \"a\": 1,\n    \"hooks\": {\n        \"Notification\": [\n"
                                    "            {\n                \"matcher\": "))
        << fourSpaces.text;

    const auto crlf = installClaudeHooks("{\r\n  \"a\": 1\r\n}\r\n", kCommand);
    for (std::size_t at = crlf.text.find('\n'); at != std::string::npos; at = crlf.text.find('\n', at + 1)) {
        ASSERT_EQ(crlf.text[at - 1], '\r') << "a bare line feed at " << at << " in\n" << crlf.text;
    }

    const auto compact = installClaudeHooks(R"({"a":1})", kCommand);
    EXPECT_TRUE(compact.text.starts_with(R"({"a":1,"hooks":{"Notification":[{"matcher":"permission)"))
        << compact.text;
}

TEST(ClaudeSettingsEdit, ANewFileHoldsOnlyOurHooksInClaudeCodesOwnLayout) {
    for (const char* blank : {"", " \n\t\r\n"}) {
        const auto edit = installClaudeHooks(blank, kCommand);
        ASSERT_EQ(edit.outcome, Outcome::changed);
        const Json settings = Json::parse(edit.text);
        EXPECT_EQ(settings.size(), 1u);
        const Json& notification = settings["hooks"]["Notification"][0];
        EXPECT_EQ(notification.begin().key(), "matcher");
        EXPECT_EQ(notification["matcher"], "permission_prompt|idle_prompt|elicitation_dialog");
        EXPECT_EQ(notification["hooks"][0],
                  (Json{{"type", "command"}, {"command", kCommand}, {"timeout", 5}}));
        EXPECT_FALSE(settings["hooks"]["Stop"][0].contains("matcher"));
        EXPECT_EQ(edit.text.substr(0, 16), "{\n  \"hooks\": {\n ");
        EXPECT_EQ(edit.text.back(), '\n');
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
    EXPECT_EQ(hooks["Stop"][0]["hooks"][0]["command"], "say done");
    EXPECT_EQ(hooks["Stop"][1]["hooks"][0]["command"], kCommand);
    EXPECT_FALSE(hooks.contains("SessionStart")) << "an event left with nothing goes";
    EXPECT_EQ(hooks.size(), 2u);

    const Json removed = Json::parse(uninstallClaudeHooks(edit.text).text);
    EXPECT_EQ(removed["hooks"], Json::parse(R"({"Stop": [{"hooks": [{"command": "say done"}]}]})"));
}

TEST(ClaudeSettingsEdit, UninstallWithNothingOfOursChangesNothing) {
    for (const char* text : {"", "{}", R"({"hooks": {}})", R"({"hooks": "x"})", R"({"hooks": [1]})",
                             R"({"hooks": {"Stop": [{"hooks": [{"command": "say done"}]}], "Odd": 3}})"}) {
        EXPECT_EQ(uninstallClaudeHooks(text).outcome, Outcome::unchanged) << text;
    }
}

struct Refusal {
    const char* name;
    std::string text;
    std::string reason;
};

const Refusal kRefusals[] = {
    {"hooks_string", R"({"hooks": "Vantrelle/claude-events.jsonl"})",
     R"("hooks" is a string, not an object)"},
    {"hooks_array", R"({"hooks": [{"Stop": []}]})", R"("hooks" is an array, not an object)"},
    {"hooks_number", R"({"hooks": 1e2})", R"("hooks" is a number, not an object)"},
    {"hooks_null", R"({"hooks": null})", R"("hooks" is null, not an object)"},
    {"hooks_boolean", R"({"hooks": false})", R"("hooks" is a boolean, not an object)"},
    {"stop_object", R"({"hooks": {"Stop": {"hooks": []}}})",
     R"("Stop" in "hooks" is an object, not an array)"},
    {"notification_string", R"({"hooks": {"Notification": "x", "Stop": []}})",
     R"("Notification" in "hooks" is a string, not an array)"},
};

class Refused : public ::testing::TestWithParam<Refusal> {};

TEST_P(Refused, InstallSaysWhatItFoundAndUninstallLeavesItAlone) {
    const auto& [name, text, reason] = GetParam();
    const auto install = installClaudeHooks(text, kCommand);
    EXPECT_EQ(install.outcome, Outcome::refused);
    EXPECT_EQ(install.reason, reason);
    EXPECT_EQ(uninstallClaudeHooks(text).outcome, Outcome::unchanged);
    EXPECT_FALSE(claudeHooksInstalled(text));
}

INSTANTIATE_TEST_SUITE_P(Shapes, Refused, ::testing::ValuesIn(kRefusals),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(ClaudeSettingsEdit, OursIsTakenOutWhateverElseTheHooksHold) {
    const std::string ours = R"({"hooks": [{"command": "x >> Vantrelle/claude-events.jsonl"}]})";
    const struct {
        const char* name;
        std::string text, removed;
    } rows[] = {
        {"beside an event that is not an array",
         R"({"hooks": {"Stop": "user's", "Notification": [)" + ours + "]}}",
         R"({"hooks": {"Stop": "user's"}})"},
        {"amid odd elements of its array", R"({"hooks": {"Stop": [1, )" + ours + R"(, "two"]}})",
         R"({"hooks": {"Stop": [1, "two"]}})"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        ASSERT_TRUE(claudeHooksInstalled(row.text));
        const auto removed = uninstallClaudeHooks(row.text);
        EXPECT_EQ(removed.text, row.removed);
        EXPECT_FALSE(claudeHooksInstalled(removed.text));
    }
}

struct Problem {
    const char* name;
    std::string text;
    std::optional<std::string> problem;
};

std::string nested(std::size_t depth) {
    return "{\"a\": " + std::string(depth - 1, '[') + std::string(depth - 1, ']') + "}";
}

const Problem kProblems[] = {
    {"blank", " \r\n\t", std::nullopt},
    {"trailing_comma", "{\"model\": \"opus\",}", "it isn't valid JSON (line 1, column 18)"},
    {"second_line", "{\n  \"a\": tru\n}", "it isn't valid JSON (line 2, column 11)"},
    {"two_values", "{} {}", "it isn't valid JSON (line 1, column 4)"},
    {"top_level_array", "[1, 2]", "it holds an array, not an object"},
    {"top_level_string", "\"x\"", "it holds a string, not an object"},
    {"bad_utf8", "{\"a\": \"\xff\"}", "it isn't valid JSON (line 1, column 8)"},
    {"nesting_at_the_limit", nested(512), std::nullopt},
    {"nesting_past_the_limit", nested(513), "it nests deeper than 512 levels"},
    {"nesting_100000", nested(100'000), "it nests deeper than 512 levels"},
    {"brackets_in_strings_do_not_count", "{\"a\": \"" + std::string(1000, '[') + "\"}", std::nullopt},
};

class Problems : public ::testing::TestWithParam<Problem> {};

TEST_P(Problems, AreNamedInPlainWords) {
    EXPECT_EQ(claudeSettingsProblem(GetParam().text), GetParam().problem);
}

INSTANTIATE_TEST_SUITE_P(Texts, Problems, ::testing::ValuesIn(kProblems),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace vantrelle
