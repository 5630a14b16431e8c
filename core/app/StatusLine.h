#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "agents/StatusFigures.h"
#include "agents/TranscriptFigures.h"

namespace vantrelle {

// `vantrelle statusline`: the one line Claude Code shows under its prompt. Plain functions: the
// command supplies the sources, the clock and the terminal's wishes.

// What Claude Code hands a status-line command on standard input; fields it doesn't know are ignored.
struct StatusInput {
    bool understood = false;  // the input was a JSON object
    std::string sessionId;
    std::string modelId;
    std::string modelName;  // display name
    std::string cwd;
    std::filesystem::path transcript;
};

[[nodiscard]] StatusInput parseStatusInput(std::string_view text);

enum class StatusSource { app, file, transcript, none };
[[nodiscard]] std::string_view statusSourceName(StatusSource source);

// Where the figures may come from, tried in this order; each answers nothing when it can't.
struct StatusSources {
    std::function<std::optional<StatusFigures>(const std::string& sessionId)> askApp;
    std::function<std::optional<StatusFigures>()> readFiguresFile;
    std::function<std::optional<TranscriptFigures>(const std::filesystem::path&)> readTranscript;
};

// What the line can say. A figure that isn't known is left out rather than guessed.
struct StatusFacts {
    std::string model;
    std::optional<StatusAmount> session;
    std::optional<StatusAmount> today;
    std::optional<AIBlockUsage> block;  // still open at the moment asked
    double secondsLeft = 0;             // of the open window
    StatusSource source = StatusSource::none;
};

// Figures older than their day or window are not passed off as current: a file written yesterday says
// nothing of today, and a window that has closed since is left out.
[[nodiscard]] StatusFacts gatherStatus(const StatusInput& input, const StatusSources& sources, Date now);

// The template's fields: {model} {session_cost} {session_tokens} {today_cost} {today_tokens}
// {block_cost} {block_tokens} {block_percent} {time_left} {burn} {projected} {source}. A field without a
// figure reads "-"; braces around anything else stay as written.
inline constexpr std::string_view kStatusFields[] = {
    "model",        "session_cost",  "session_tokens", "today_cost", "today_tokens", "block_cost",
    "block_tokens", "block_percent", "time_left",      "burn",       "projected",    "source"};

// The line, without its line feed. No template: the default compact line, which leaves out what isn't
// known. `colour`: ANSI colours, for a terminal.
[[nodiscard]] std::string formatStatusLine(const StatusFacts& facts, const std::optional<std::string>& format,
                                           bool colour);

}  // namespace vantrelle
