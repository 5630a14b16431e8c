#include "app/StatusLine.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <vector>

#include "support/AIFormat.h"
#include "support/LocalCalendar.h"

namespace vantrelle {

namespace {

using Json = nlohmann::json;

std::string text(const Json& object, const char* key) {
    const auto found = object.find(key);
    return found != object.end() && found->is_string() ? found->get<std::string>() : std::string();
}

bool openAt(const AIBlockUsage& block, Date now) {
    return now < block.start + kBlockSeconds || now - block.lastActivity < kBlockSeconds;
}

// One field's text, nothing when its figure isn't known.
std::optional<std::string> field(std::string_view name, const StatusFacts& facts) {
    const auto& block = facts.block;
    if (name == "model") return facts.model.empty() ? std::nullopt : std::optional(facts.model);
    if (name == "session_cost" && facts.session) return AIFormat::cost(facts.session->cost);
    if (name == "session_tokens" && facts.session) return AIFormat::tokens(facts.session->tokens);
    if (name == "today_cost" && facts.today) return AIFormat::cost(facts.today->cost);
    if (name == "today_tokens" && facts.today) return AIFormat::tokens(facts.today->tokens);
    if (name == "block_cost" && block) return AIFormat::cost(block->cost);
    if (name == "block_tokens" && block) return AIFormat::tokens(block->tokens);
    if (name == "block_percent" && block && block->budget > 0) {
        const double percent =
            100.0 * static_cast<double>(block->tokens) / static_cast<double>(block->budget);
        return std::to_string(static_cast<long long>(std::floor(percent))) + "%";
    }
    if (name == "time_left" && block) return AIFormat::remaining(facts.secondsLeft);
    if (name == "burn" && block && std::isfinite(block->burnTokensPerMinute)) {
        return AIFormat::tokens(static_cast<std::int64_t>(block->burnTokensPerMinute)) + "/min";
    }
    if (name == "projected" && block) return AIFormat::tokens(block->projectedTokens);
    if (name == "source") return std::string(statusSourceName(facts.source));
    return std::nullopt;
}

const char* colourOf(std::string_view name, const StatusFacts& facts) {
    if (name == "model") return "\x1b[1;36m";
    if (name.ends_with("_cost")) return "\x1b[32m";
    if (name == "block_percent" && facts.block && facts.block->budget > 0) {
        const double ratio =
            static_cast<double>(facts.block->tokens) / static_cast<double>(facts.block->budget);
        return ratio >= 1.0 ? "\x1b[31m" : ratio >= 0.8 ? "\x1b[33m" : "\x1b[35m";
    }
    if (name == "time_left" || name == "burn") return "\x1b[2m";
    return nullptr;
}

std::string painted(std::string_view name, const std::string& value, const StatusFacts& facts, bool colour) {
    const char* code = colour ? colourOf(name, facts) : nullptr;
    return code ? code + value + "\x1b[0m" : value;
}

bool isField(std::string_view name) {
    for (auto known : kStatusFields) {
        if (known == name) return true;
    }
    return false;
}

std::string fromTemplate(std::string_view format, const StatusFacts& facts, bool colour) {
    std::string line;
    std::size_t at = 0;
    while (at < format.size()) {
        const auto open = format.find('{', at);
        const auto close = open == std::string_view::npos ? open : format.find('}', open);
        if (close == std::string_view::npos) break;
        const auto name = format.substr(open + 1, close - open - 1);
        line += format.substr(at, open - at);
        if (isField(name)) {
            line += painted(name, field(name, facts).value_or("-"), facts, colour);
        } else {
            line += format.substr(open, close - open + 1);
        }
        at = close + 1;
    }
    line += format.substr(std::min(at, format.size()));
    // One line: a template's own line breaks would break Claude Code's layout.
    for (char& c : line) {
        if (c == '\n' || c == '\r') c = ' ';
    }
    return line;
}

std::string compact(const StatusFacts& facts, bool colour) {
    std::vector<std::string> parts;
    const auto add = [&](std::string_view name, std::string_view after) {
        if (auto value = field(name, facts)) parts.push_back(painted(name, *value, facts, colour) += after);
    };
    add("model", "");
    add("session_cost", " session");
    add("today_cost", " today");
    if (facts.block) {
        std::string window = painted("block_cost", *field("block_cost", facts), facts, colour) + " block";
        if (auto percent = field("block_percent", facts))
            window += " " + painted("block_percent", *percent, facts, colour);
        window += ", " + painted("time_left", *field("time_left", facts), facts, colour) + " left";
        parts.push_back(std::move(window));
        add("burn", "");
    }
    if (parts.empty()) return "Vantrelle: no usage figures yet";
    std::string line;
    for (const auto& part : parts) line += (line.empty() ? "" : " | ") + part;
    return line;
}

}  // namespace

StatusInput parseStatusInput(std::string_view input) {
    StatusInput parsed;
    const Json json = Json::parse(input, nullptr, /*allow_exceptions=*/false);
    if (!json.is_object()) return parsed;
    parsed.understood = true;
    parsed.sessionId = text(json, "session_id");
    parsed.cwd = text(json, "cwd");
    parsed.transcript = text(json, "transcript_path");
    if (const auto model = json.find("model"); model != json.end() && model->is_object()) {
        parsed.modelId = text(*model, "id");
        parsed.modelName = text(*model, "display_name");
    } else if (model != json.end() && model->is_string()) {
        parsed.modelId = model->get<std::string>();
    }
    if (const auto workspace = json.find("workspace"); workspace != json.end() && workspace->is_object()) {
        if (auto current = text(*workspace, "current_dir"); !current.empty()) parsed.cwd = std::move(current);
    }
    return parsed;
}

std::string_view statusSourceName(StatusSource source) {
    switch (source) {
        case StatusSource::app:
            return "app";
        case StatusSource::file:
            return "file";
        case StatusSource::transcript:
            return "transcript";
        case StatusSource::none:
            return "none";
    }
    return "none";
}

StatusFacts gatherStatus(const StatusInput& input, const StatusSources& sources, Date now) {
    StatusFacts facts;
    std::optional<StatusFigures> figures;
    if (sources.askApp && (figures = sources.askApp(input.sessionId))) {
        facts.source = StatusSource::app;
    } else if (sources.readFiguresFile && (figures = sources.readFiguresFile())) {
        facts.source = StatusSource::file;
    }
    std::string sessionModel;
    if (figures) {
        if (figures->dayKey == LocalCalendar::dayKey(now)) facts.today = figures->today;
        if (figures->block && openAt(*figures->block, now)) {
            facts.block = figures->block;
            facts.secondsLeft = std::max(0.0, (figures->block->start + kBlockSeconds) - now);
        }
        if (const auto found = figures->sessions.find(input.sessionId);
            !input.sessionId.empty() && found != figures->sessions.end()) {
            facts.session = found->second;
        }
        if (const auto found = figures->sessionModels.find(input.sessionId);
            found != figures->sessionModels.end())
            sessionModel = found->second;
    }
    // A session the figures don't hold yet: its own log, and nothing else.
    if (!facts.session && !input.transcript.empty() && sources.readTranscript) {
        if (auto transcript = sources.readTranscript(input.transcript)) {
            facts.session = transcript->amount;
            if (sessionModel.empty()) sessionModel = transcript->model;
            if (facts.source == StatusSource::none) facts.source = StatusSource::transcript;
        }
    }
    facts.model = !input.modelName.empty() ? input.modelName
                  : !input.modelId.empty() ? input.modelId
                                           : sessionModel;
    // Control characters from the input would break the line or drive the terminal.
    for (char& c : facts.model) {
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) c = ' ';
    }
    return facts;
}

std::string formatStatusLine(const StatusFacts& facts, const std::optional<std::string>& format,
                             bool colour) {
    return format ? fromTemplate(*format, facts, colour) : compact(facts, colour);
}

}  // namespace vantrelle
