#include "agents/ClaudeHooks.h"

#include <cerrno>
#include <cstring>
#include <nlohmann/json.hpp>
#include <variant>

#include "support/AtomicFile.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace fs = std::filesystem;
using Json = nlohmann::json;

namespace {

struct WantedHook {
    const char* event;
    const char* matcher;  // null for none
};
constexpr WantedHook kWanted[] = {
    {"Notification", "permission_prompt|idle_prompt|elicitation_dialog"},
    {"Stop", nullptr},
};

// Why a settings file could not be used, in the words the user sees.
struct Unreadable {
    std::string reason;
    [[nodiscard]] std::string message() const {
        return "Couldn't read your Claude Code settings: " + reason + ". Nothing was changed.";
    }
};

bool isBlank(const std::string& text) {
    return text.find_first_not_of(" \t\n\r") == std::string::npos;
}

std::variant<Json, Unreadable> readSettings(const fs::path& file) {
    std::error_code error;
    if (!fs::exists(file, error)) return Json::object();
    auto text = readWholeFile(file);
    if (!text) return Unreadable{std::strerror(errno)};
    if (isBlank(*text)) return Json::object();
    Json json = Json::parse(*text, nullptr, /*allow_exceptions=*/false);
    if (json.is_discarded() || !json.is_object()) return Unreadable{"it isn't valid JSON"};
    return json;
}

bool groupIsOurs(const Json& group) {
    if (!group.is_object()) return false;
    auto hooks = group.find("hooks");
    if (hooks == group.end() || !hooks->is_array()) return false;
    for (const auto& hook : *hooks) {
        if (!hook.is_object()) continue;
        auto command = hook.find("command");
        if (command != hook.end() && command->is_string() &&
            command->get_ref<const std::string&>().find(ClaudeHooks::kMarker) != std::string::npos) {
            return true;
        }
    }
    return false;
}

bool isArrayOfObjects(const Json& value) {
    if (!value.is_array()) return false;
    for (const auto& element : value) {
        if (!element.is_object()) return false;
    }
    return true;
}

// The hooks object without our groups; an event left with no group is dropped.
Json removingOurs(const Json& hooks) {
    Json result = Json::object();
    for (const auto& [event, groups] : hooks.items()) {
        if (!isArrayOfObjects(groups)) {
            result[event] = groups;
            continue;
        }
        Json kept = Json::array();
        for (const auto& group : groups) {
            if (!groupIsOurs(group)) kept.push_back(group);
        }
        if (!kept.empty()) result[event] = std::move(kept);
    }
    return result;
}

std::optional<std::string> backUp(const fs::path& settings, const fs::path& backup) {
    std::error_code error;
    if (!fs::exists(settings, error)) return std::nullopt;
    fs::remove(backup, error);
    if (!fs::copy_file(settings, backup, fs::copy_options::overwrite_existing, error)) return error.message();
    return std::nullopt;
}

std::optional<std::string> write(const fs::path& file, const Json& settings) {
    // Keys come out sorted (the object is ordered) and slashes are never escaped.
    if (!writeFileAtomically(file, settings.dump(2) + "\n")) return "The settings file could not be written.";
    return std::nullopt;
}

std::string shellQuoted(const std::string& text) {
    std::string quoted = "\"";
    for (char c : text) {
        if (c == '"' || c == '\\' || c == '`' || c == '$') quoted += '\\';
        quoted += c;
    }
    return quoted + "\"";
}

}  // namespace

ClaudeHooks::ClaudeHooks(const AppPaths& paths, const Environment& environment) {
    const auto events = environment.get("VANTRELLE_CLAUDE_EVENTS");
    m_eventsFile = events && !events->empty() ? fs::path(*events) : paths.dataRoot() / "claude-events.jsonl";
    const auto settings = environment.get("VANTRELLE_CLAUDE_SETTINGS");
    m_settingsFile =
        settings && !settings->empty() ? fs::path(*settings) : paths.home / ".claude" / "settings.json";

    // The command names the data root the way the user's shell will find it, independent of any test
    // override of the events file.
    const fs::path dataRootFile = paths.dataRoot() / "claude-events.jsonl";
    const fs::path defaultData = paths.home / ".local" / "share";
    const std::string target = paths.dataHome == defaultData
                                   ? "\"$HOME/.local/share/Vantrelle/claude-events.jsonl\""
                                   : shellQuoted(dataRootFile.string());
    m_command = "{ cat; echo; } >> " + target + " 2>/dev/null; exit 0";
}

fs::path ClaudeHooks::backupFile() const {
    return m_settingsFile.parent_path() / "settings.json.vantrelle-backup";
}

bool ClaudeHooks::isInstalled() const {
    auto read = readSettings(m_settingsFile);
    const Json* settings = std::get_if<Json>(&read);
    if (!settings) return false;
    auto hooks = settings->find("hooks");
    if (hooks == settings->end() || !hooks->is_object()) return false;
    for (const auto& [event, groups] : hooks->items()) {
        if (!groups.is_array()) continue;
        for (const auto& group : groups) {
            if (groupIsOurs(group)) return true;
        }
    }
    return false;
}

std::optional<std::string> ClaudeHooks::install() const {
    auto read = readSettings(m_settingsFile);
    if (auto* failure = std::get_if<Unreadable>(&read)) return failure->message();
    Json settings = std::get<Json>(std::move(read));
    if (auto failed = backUp(m_settingsFile, backupFile())) return failed;

    auto existing = settings.find("hooks");
    Json hooks =
        existing != settings.end() && existing->is_object() ? removingOurs(*existing) : Json::object();
    for (const auto& wanted : kWanted) {
        Json group = {
            {"hooks", Json::array({{{"type", "command"}, {"command", m_command}, {"timeout", 5}}})}};
        if (wanted.matcher) group["matcher"] = wanted.matcher;
        Json& groups = hooks[wanted.event];
        if (!groups.is_array()) groups = Json::array();
        groups.push_back(std::move(group));
    }
    settings["hooks"] = std::move(hooks);
    if (auto failed = write(m_settingsFile, settings)) return failed;

    std::error_code error;
    fs::create_directories(m_eventsFile.parent_path(), error);
    DebugLog::write([&] { return "claude alerts: hooks installed in " + m_settingsFile.string(); });
    return std::nullopt;
}

std::optional<std::string> ClaudeHooks::uninstall() const {
    auto read = readSettings(m_settingsFile);
    if (auto* failure = std::get_if<Unreadable>(&read)) return failure->message();
    Json settings = std::get<Json>(std::move(read));
    auto existing = settings.find("hooks");
    if (existing == settings.end()) return std::nullopt;

    const Json hooks = existing->is_object() ? removingOurs(*existing) : *existing;
    // Nothing of ours in there: leave the user's file exactly as it is.
    if (hooks == *existing) return std::nullopt;
    if (auto failed = backUp(m_settingsFile, backupFile())) return failed;
    if (hooks.empty()) {
        settings.erase("hooks");
    } else {
        settings["hooks"] = hooks;
    }
    if (auto failed = write(m_settingsFile, settings)) return failed;
    DebugLog::write([&] { return "claude alerts: hooks removed from " + m_settingsFile.string(); });
    return std::nullopt;
}

}  // namespace vantrelle
