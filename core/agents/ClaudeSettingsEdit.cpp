#include "agents/ClaudeSettingsEdit.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <vector>

#include "support/JsonDepth.h"
#include "support/JsonLayout.h"
#include "support/JsonSplice.h"

namespace vantrelle {

namespace {

using Json = nlohmann::ordered_json;

struct WantedHook {
    const char* event;
    const char* matcher;  // null for none
};
constexpr WantedHook kWanted[] = {
    {"Notification", "permission_prompt|idle_prompt|elicitation_dialog"},
    {"Stop", nullptr},
};

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\n\r") == std::string_view::npos;
}

// Accepts everything and remembers where the parser gave up. The parser keeps its own stack, so
// this pass costs no recursion however deep the text.
class ErrorPosition final : public nlohmann::json_sax<nlohmann::json> {
public:
    std::size_t byte = 0;
    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(number_integer_t) override { return true; }
    bool number_unsigned(number_unsigned_t) override { return true; }
    bool number_float(number_float_t, const string_t&) override { return true; }
    bool string(string_t&) override { return true; }
    bool binary(binary_t&) override { return true; }
    bool start_object(std::size_t) override { return true; }
    bool key(string_t&) override { return true; }
    bool end_object() override { return true; }
    bool start_array(std::size_t) override { return true; }
    bool end_array() override { return true; }
    bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception&) override {
        byte = position;
        return false;
    }
};

std::string lineAndColumn(std::string_view text, std::size_t byte) {
    const std::size_t at = std::min(byte > 0 ? byte - 1 : 0, text.size());
    const auto before = text.substr(0, at);
    const std::size_t line = 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
    const std::size_t lineStart = before.rfind('\n') == std::string_view::npos ? 0 : before.rfind('\n') + 1;
    return "line " + std::to_string(line) + ", column " + std::to_string(at - lineStart + 1);
}

Json ourGroup(const WantedHook& wanted, const std::string& command) {
    Json group = Json::object();
    if (wanted.matcher) group["matcher"] = wanted.matcher;
    group["hooks"] = Json::array({Json{{"type", "command"}, {"command", command}, {"timeout", 5}}});
    return group;
}

bool groupIsOurs(std::string_view text, const JsonElement& element) {
    if (jsonKindAt(text, element.value.begin) != JsonKind::object) return false;
    const auto group = Json::parse(text.substr(element.value.begin, element.value.end - element.value.begin),
                                   nullptr, /*allow_exceptions=*/false);
    if (!group.is_object()) return false;
    const auto hooks = group.find("hooks");
    if (hooks == group.end() || !hooks->is_array()) return false;
    return std::any_of(hooks->begin(), hooks->end(), [](const Json& hook) {
        if (!hook.is_object()) return false;
        const auto command = hook.find("command");
        return command != hook.end() && command->is_string() &&
               command->get_ref<const std::string&>().find(kClaudeHookMarker) != std::string::npos;
    });
}

// Our groups in an event's array. Whatever else the array holds stays, of any type: what counts as
// installed is also what uninstalling takes out.
std::vector<JsonElementEdit> removalsOfOurs(std::string_view text, const JsonContainer& groups,
                                            std::size_t& removed) {
    std::vector<JsonElementEdit> edits(groups.elements.size());
    removed = 0;
    for (std::size_t i = 0; i < groups.elements.size(); ++i) {
        edits[i].remove = groupIsOurs(text, groups.elements[i]);
        removed += edits[i].remove ? 1 : 0;
    }
    return edits;
}

// The document's top-level object and the member "hooks" in it, when there is one.
struct Located {
    JsonContainer top;
    std::optional<std::size_t> hooks;
};

std::optional<Located> locate(std::string_view text) {
    auto top = scanJsonContainer(text, jsonDocumentStart(text));
    if (!top || !top->isObject) return std::nullopt;
    const auto hooks = findJsonMember(text, *top, "hooks");
    return Located{std::move(*top), hooks};
}

ClaudeSettingsEdit replacing(std::string_view text, const JsonContainer& top, const std::string& newTop) {
    std::string result(text.substr(0, top.whole.begin));
    result += newTop;
    result += text.substr(top.whole.end);
    if (result == text) return {};
    return {ClaudeSettingsEdit::Outcome::changed, std::move(result), {}};
}

std::string quoted(std::string_view key) {
    return Json(key).dump(-1, ' ', false, Json::error_handler_t::replace);
}

// The new text of the "hooks" object: ours out everywhere, then back once at the end of each wanted
// event. Refuses a wanted event that isn't an array.
std::optional<std::string> installedHooks(std::string_view text, const JsonContainer& hooks,
                                          const JsonStyle& style, const std::string& command,
                                          std::string& refusal) {
    std::vector<JsonElementEdit> edits(hooks.elements.size());
    std::vector<JsonNewElement> added;
    for (const auto& wanted : kWanted) {
        const auto at = findJsonMember(text, hooks, wanted.event);
        if (!at) {
            added.push_back({wanted.event, Json::array({ourGroup(wanted, command)})});
            continue;
        }
        const auto kind = jsonKindAt(text, hooks.elements[*at].value.begin);
        if (kind != JsonKind::array) {
            refusal = quoted(wanted.event) + " in \"hooks\" is " + (kind ? jsonKindName(*kind) : "a value") +
                      ", not an array";
            return std::nullopt;
        }
    }
    for (std::size_t i = 0; i < hooks.elements.size(); ++i) {
        const auto& member = hooks.elements[i];
        const auto groups = scanJsonContainer(text, member.value.begin);
        if (!groups || groups->isObject) continue;
        std::size_t removed = 0;
        const auto removals = removalsOfOurs(text, *groups, removed);
        const auto key = jsonKey(text, member);
        const WantedHook* wanted = nullptr;
        for (const auto& w : kWanted) {
            if (key == w.event && findJsonMember(text, hooks, w.event) == i) wanted = &w;
        }
        if (wanted) {
            edits[i].value =
                rebuildJsonContainer(text, *groups, removals, {{{}, ourGroup(*wanted, command)}}, style);
        } else if (removed == groups->elements.size() && removed > 0) {
            edits[i].remove = true;
        } else if (removed > 0) {
            edits[i].value = rebuildJsonContainer(text, *groups, removals, {}, style);
        }
    }
    return rebuildJsonContainer(text, hooks, edits, added, style);
}

}  // namespace

std::optional<std::string> claudeSettingsProblem(std::string_view text) {
    if (isBlank(text)) return std::nullopt;
    if (exceedsJsonDepth(text, kMaxJsonDepth)) {
        return "it nests deeper than " + std::to_string(kMaxJsonDepth) + " levels";
    }
    ErrorPosition errors;
    if (!nlohmann::json::sax_parse(text, &errors, nlohmann::json::input_format_t::json, /*strict=*/true)) {
        return "it isn't valid JSON (" + lineAndColumn(text, errors.byte) + ")";
    }
    const auto kind = jsonKindAt(text, jsonDocumentStart(text));
    if (kind != JsonKind::object) {
        return std::string("it holds ") + (kind ? jsonKindName(*kind) : "a value") + ", not an object";
    }
    if (!locate(text)) return "its layout couldn't be followed";
    return std::nullopt;
}

ClaudeSettingsEdit installClaudeHooks(std::string_view text, const std::string& command) {
    Json hooks = Json::object();
    for (const auto& wanted : kWanted) hooks[wanted.event] = Json::array({ourGroup(wanted, command)});
    if (isBlank(text)) {
        return {
            ClaudeSettingsEdit::Outcome::changed, writeJson(Json{{"hooks", hooks}}, JsonStyle{}) + "\n", {}};
    }
    const auto located = locate(text);
    if (!located) return ClaudeSettingsEdit::refused("its layout couldn't be followed");
    const auto& top = located->top;
    const JsonStyle style = JsonStyle::of(text, top);
    if (!located->hooks) {
        return replacing(text, top, rebuildJsonContainer(text, top, {}, {{"hooks", hooks}}, style));
    }

    const auto& member = top.elements[*located->hooks];
    const auto kind = jsonKindAt(text, member.value.begin);
    if (kind != JsonKind::object) {
        return ClaudeSettingsEdit::refused(std::string("\"hooks\" is ") +
                                           (kind ? jsonKindName(*kind) : "a value") + ", not an object");
    }
    const auto existing = scanJsonContainer(text, member.value.begin);
    if (!existing) return ClaudeSettingsEdit::refused("its layout couldn't be followed");
    std::string refusal;
    auto newHooks = installedHooks(text, *existing, style, command, refusal);
    if (!newHooks) return ClaudeSettingsEdit::refused(std::move(refusal));
    std::vector<JsonElementEdit> edits(top.elements.size());
    edits[*located->hooks].value = std::move(*newHooks);
    return replacing(text, top, rebuildJsonContainer(text, top, edits, {}, style));
}

ClaudeSettingsEdit uninstallClaudeHooks(std::string_view text) {
    if (isBlank(text)) return {};
    const auto located = locate(text);
    if (!located || !located->hooks) return {};
    const auto& top = located->top;
    const auto existing = scanJsonContainer(text, top.elements[*located->hooks].value.begin);
    if (!existing || !existing->isObject) return {};  // nothing of ours can be in there

    const JsonStyle style = JsonStyle::of(text, top);
    std::vector<JsonElementEdit> edits(existing->elements.size());
    std::size_t removedTotal = 0;
    std::size_t eventsLeft = existing->elements.size();
    for (std::size_t i = 0; i < existing->elements.size(); ++i) {
        const auto groups = scanJsonContainer(text, existing->elements[i].value.begin);
        if (!groups || groups->isObject) continue;
        std::size_t removed = 0;
        const auto removals = removalsOfOurs(text, *groups, removed);
        if (removed == 0) continue;
        removedTotal += removed;
        if (removed == groups->elements.size()) {
            edits[i].remove = true;
            --eventsLeft;
        } else {
            edits[i].value = rebuildJsonContainer(text, *groups, removals, {}, style);
        }
    }
    if (removedTotal == 0) return {};

    std::vector<JsonElementEdit> topEdits(top.elements.size());
    if (eventsLeft == 0) {
        topEdits[*located->hooks].remove = true;
    } else {
        topEdits[*located->hooks].value = rebuildJsonContainer(text, *existing, edits, {}, style);
    }
    return replacing(text, top, rebuildJsonContainer(text, top, topEdits, {}, style));
}

bool claudeHooksInstalled(std::string_view text) {
    if (isBlank(text)) return false;
    const auto located = locate(text);
    if (!located || !located->hooks) return false;
    const auto hooks = scanJsonContainer(text, located->top.elements[*located->hooks].value.begin);
    if (!hooks || !hooks->isObject) return false;
    for (const auto& event : hooks->elements) {
        const auto groups = scanJsonContainer(text, event.value.begin);
        if (!groups || groups->isObject) continue;
        for (const auto& group : groups->elements) {
            if (groupIsOurs(text, group)) return true;
        }
    }
    return false;
}

namespace {

constexpr std::string_view kStatusLineKey = "statusLine";

// The "statusLine" value as parsed, or nothing when the settings have none.
std::optional<Json> statusLineValue(std::string_view text, const Located& located) {
    const auto at = findJsonMember(text, located.top, kStatusLineKey);
    if (!at) return std::nullopt;
    const auto& span = located.top.elements[*at].value;
    return Json::parse(text.substr(span.begin, span.end - span.begin), nullptr, /*allow_exceptions=*/false);
}

std::string commandOf(const Json& value) {
    if (!value.is_object()) return {};
    const auto command = value.find("command");
    return command != value.end() && command->is_string() ? command->get<std::string>() : std::string();
}

Json ourStatusLine(const std::string& command) {
    return Json{{"type", "command"}, {"command", command}, {"padding", 0}};
}

}  // namespace

bool isOurStatusLineCommand(std::string_view command) {
    const auto verb = command.rfind(" statusline");
    if (verb == std::string_view::npos) return false;
    const auto rest = command.substr(verb + 11);
    if (!rest.empty() && rest.front() != ' ') return false;
    const auto program = command.substr(0, verb);
    return program.find("vantrelle") != std::string_view::npos;
}

ClaudeStatusLine claudeStatusLineState(std::string_view text) {
    if (isBlank(text)) return ClaudeStatusLine::none;
    const auto located = locate(text);
    if (!located) return ClaudeStatusLine::none;
    const auto value = statusLineValue(text, *located);
    if (!value) return ClaudeStatusLine::none;
    return isOurStatusLineCommand(commandOf(*value)) ? ClaudeStatusLine::ours : ClaudeStatusLine::foreign;
}

std::string claudeStatusLineCommand(std::string_view text) {
    if (isBlank(text)) return {};
    const auto located = locate(text);
    if (!located) return {};
    const auto value = statusLineValue(text, *located);
    return value ? commandOf(*value) : std::string();
}

ClaudeSettingsEdit installClaudeStatusLine(std::string_view text, const std::string& command, bool replace) {
    if (isBlank(text)) {
        return {ClaudeSettingsEdit::Outcome::changed,
                writeJson(Json{{std::string(kStatusLineKey), ourStatusLine(command)}}, JsonStyle{}) + "\n",
                {}};
    }
    const auto located = locate(text);
    if (!located) return ClaudeSettingsEdit::refused("its layout couldn't be followed");
    const auto& top = located->top;
    const JsonStyle style = JsonStyle::of(text, top);
    const auto at = findJsonMember(text, top, kStatusLineKey);
    if (!at) {
        return replacing(text, top,
                         rebuildJsonContainer(
                             text, top, {}, {{std::string(kStatusLineKey), ourStatusLine(command)}}, style));
    }
    const auto value = statusLineValue(text, *located);
    const std::string existing = value ? commandOf(*value) : std::string();
    if (isOurStatusLineCommand(existing)) {
        if (existing == command) return {};
    } else if (!replace) {
        return ClaudeSettingsEdit::refused(existing.empty() ? "it already has a status line of its own"
                                                            : "it already has a status line of its own, \"" +
                                                                  existing + "\"");
    }
    std::vector<JsonElementEdit> edits(top.elements.size());
    edits[*at].value = writeJson(ourStatusLine(command), style, style.multiline ? style.indent : "");
    return replacing(text, top, rebuildJsonContainer(text, top, edits, {}, style));
}

ClaudeSettingsEdit uninstallClaudeStatusLine(std::string_view text) {
    if (claudeStatusLineState(text) != ClaudeStatusLine::ours) return {};
    const auto located = locate(text);
    const auto& top = located->top;
    std::vector<JsonElementEdit> edits(top.elements.size());
    edits[*findJsonMember(text, top, kStatusLineKey)].remove = true;
    return replacing(text, top, rebuildJsonContainer(text, top, edits, {}, JsonStyle::of(text, top)));
}

}  // namespace vantrelle
