#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantrelle {

// The edits of Claude Code's settings text that install and remove our hooks. They work on the text
// itself: everything outside the edited arrays keeps its bytes, so key order, number spelling and
// spacing survive, and removing what installing added gives back the same file.

// Any command containing this text is ours.
inline constexpr std::string_view kClaudeHookMarker = "Vantrelle/claude-events.jsonl";

// Why the text can't be taken as Claude Code's settings, in the user's words ("it isn't valid JSON
// (line 3, column 7)"); nothing when it can. Blank text counts as an empty object.
[[nodiscard]] std::optional<std::string> claudeSettingsProblem(std::string_view text);

struct ClaudeSettingsEdit {
    enum class Outcome { changed, unchanged, refused };
    Outcome outcome = Outcome::unchanged;
    std::string text;    // the new file, when changed
    std::string reason;  // when refused: what was found where, in the user's words

    [[nodiscard]] static ClaudeSettingsEdit refused(std::string reason) {
        return {Outcome::refused, {}, std::move(reason)};
    }
};

// Each expects text that claudeSettingsProblem() accepted.
// Our groups are taken out wherever they are and added once at the end of each wanted event. A
// "hooks" value that isn't an object, or a wanted event that isn't an array, is refused, never replaced.
[[nodiscard]] ClaudeSettingsEdit installClaudeHooks(std::string_view text, const std::string& command);
// Our groups are taken out; an event left empty goes, and so does "hooks" when nothing is left in it.
[[nodiscard]] ClaudeSettingsEdit uninstallClaudeHooks(std::string_view text);
[[nodiscard]] bool claudeHooksInstalled(std::string_view text);

// The status line: the "statusLine" object whose command Claude Code runs for the line under its
// prompt. Ours is a command that runs `vantrelle statusline`; any other is the user's own.
enum class ClaudeStatusLine { none, ours, foreign };
[[nodiscard]] bool isOurStatusLineCommand(std::string_view command);
[[nodiscard]] ClaudeStatusLine claudeStatusLineState(std::string_view text);
// The command of the status line that is set, "" when there is none or it names none.
[[nodiscard]] std::string claudeStatusLineCommand(std::string_view text);
// Sets ours with `command`. The user's own is refused unless `replace`.
[[nodiscard]] ClaudeSettingsEdit installClaudeStatusLine(std::string_view text, const std::string& command,
                                                         bool replace);
// Takes ours out; the user's own is never touched.
[[nodiscard]] ClaudeSettingsEdit uninstallClaudeStatusLine(std::string_view text);

}  // namespace vantrelle
