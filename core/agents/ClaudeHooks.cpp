#include "agents/ClaudeHooks.h"

#include <variant>

#include "agents/ClaudeSettingsFile.h"
#include "support/DebugLog.h"
#include "support/JsonDepth.h"

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

constexpr const char* kNothingChanged = " Nothing was changed.";

// The settings as they are on disk, checked.
struct Loaded {
    std::string text;
    bool existed = false;
    mode_t mode = 0600;
};

std::variant<Loaded, std::string> load(const fs::path& file) {
    const auto unreadable = [&](const std::string& reason) {
        return "Couldn't read your Claude Code settings in " + file.string() + ": " + reason + ".";
    };
    auto read = readClaudeSettings(file);
    if (read.status == ClaudeSettingsRead::Status::failed) return unreadable(read.reason);
    Loaded loaded{std::move(read.text), read.status == ClaudeSettingsRead::Status::ok, read.mode};
    if (auto problem = claudeSettingsProblem(loaded.text)) return unreadable(*problem);
    return loaded;
}

bool unchangedSince(const fs::path& file, const Loaded& loaded) {
    const auto again = readClaudeSettings(file);
    if (again.status == ClaudeSettingsRead::Status::missing) return !loaded.existed;
    return again.status == ClaudeSettingsRead::Status::ok && loaded.existed && again.text == loaded.text;
}

// Backs up (once), then writes the edited text over the file as it was loaded.
std::optional<std::string> save(const fs::path& file, const fs::path& backup, const Loaded& loaded,
                                const std::string& text) {
    if (loaded.existed) {
        if (auto failed = writeBackupOnce(backup, loaded.text, loaded.mode)) {
            return "Couldn't back up your Claude Code settings to " + backup.string() + ": " + *failed + "." +
                   kNothingChanged;
        }
    }
    if (exceedsJsonDepth(text, kMaxJsonDepth)) {
        return "Couldn't write your Claude Code settings in " + file.string() +
               ": they would nest deeper than " + std::to_string(kMaxJsonDepth) + " levels." +
               kNothingChanged;
    }
    // Claude Code may have written the file since we read it; its edit wins over ours.
    if (!unchangedSince(file, loaded)) {
        return "Your Claude Code settings in " + file.string() +
               " changed while they were being edited; try again." + kNothingChanged;
    }
    if (auto failed = writeClaudeSettings(file, text)) return *failed + "." + kNothingChanged;
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

ClaudeHooks::Status ClaudeHooks::status() const {
    auto loaded = load(m_settingsFile);
    if (auto* problem = std::get_if<std::string>(&loaded)) return {false, std::move(*problem)};
    return {claudeHooksInstalled(std::get<Loaded>(loaded).text), std::nullopt};
}

std::optional<std::string> ClaudeHooks::install() const {
    auto loaded = load(m_settingsFile);
    if (auto* problem = std::get_if<std::string>(&loaded)) return *problem + kNothingChanged;
    const Loaded& settings = std::get<Loaded>(loaded);

    const auto edit = installClaudeHooks(settings.text, m_command);
    if (edit.outcome == ClaudeSettingsEdit::Outcome::refused) {
        return "Couldn't add the hooks to your Claude Code settings in " + m_settingsFile.string() + ": " +
               edit.reason + "." + kNothingChanged;
    }
    if (edit.outcome == ClaudeSettingsEdit::Outcome::changed) {
        if (auto failed = save(m_settingsFile, backupFile(), settings, edit.text)) return failed;
        DebugLog::write([&] { return "claude alerts: hooks installed in " + m_settingsFile.string(); });
    }
    std::error_code error;
    fs::create_directories(m_eventsFile.parent_path(), error);
    return std::nullopt;
}

std::optional<std::string> ClaudeHooks::uninstall() const {
    auto loaded = load(m_settingsFile);
    if (auto* problem = std::get_if<std::string>(&loaded)) return *problem + kNothingChanged;
    const Loaded& settings = std::get<Loaded>(loaded);

    // Nothing of ours in there: the user's file stays exactly as it is, and no backup is made.
    const auto edit = uninstallClaudeHooks(settings.text);
    if (edit.outcome != ClaudeSettingsEdit::Outcome::changed) return std::nullopt;
    if (auto failed = save(m_settingsFile, backupFile(), settings, edit.text)) return failed;
    DebugLog::write([&] { return "claude alerts: hooks removed from " + m_settingsFile.string(); });
    return std::nullopt;
}

std::optional<std::string> ClaudeHooks::setInstalled(bool installed) const {
    auto failure = installed ? install() : uninstall();
    if (failure) DebugLog::write([&] { return "claude alerts: hooks left as they were: " + *failure; });
    return failure;
}

ClaudeHooks::StatusLineStatus ClaudeHooks::statusLineStatus() const {
    auto loaded = load(m_settingsFile);
    if (auto* problem = std::get_if<std::string>(&loaded))
        return {ClaudeStatusLine::none, {}, std::move(*problem)};
    const auto& text = std::get<Loaded>(loaded).text;
    return {claudeStatusLineState(text), claudeStatusLineCommand(text), std::nullopt};
}

std::optional<std::string> ClaudeHooks::installStatusLine(const std::string& command, bool replace) const {
    auto loaded = load(m_settingsFile);
    if (auto* problem = std::get_if<std::string>(&loaded)) return *problem + kNothingChanged;
    const Loaded& settings = std::get<Loaded>(loaded);
    const auto edit = installClaudeStatusLine(settings.text, command, replace);
    if (edit.outcome == ClaudeSettingsEdit::Outcome::refused) {
        return "Couldn't set the status line in your Claude Code settings in " + m_settingsFile.string() +
               ": " + edit.reason + "." + kNothingChanged;
    }
    if (edit.outcome == ClaudeSettingsEdit::Outcome::unchanged) return std::nullopt;
    if (auto failed = save(m_settingsFile, backupFile(), settings, edit.text)) return failed;
    DebugLog::write([&] { return "claude alerts: status line set in " + m_settingsFile.string(); });
    return std::nullopt;
}

std::optional<std::string> ClaudeHooks::uninstallStatusLine() const {
    auto loaded = load(m_settingsFile);
    if (auto* problem = std::get_if<std::string>(&loaded)) return *problem + kNothingChanged;
    const Loaded& settings = std::get<Loaded>(loaded);
    const auto edit = uninstallClaudeStatusLine(settings.text);
    if (edit.outcome != ClaudeSettingsEdit::Outcome::changed) return std::nullopt;
    if (auto failed = save(m_settingsFile, backupFile(), settings, edit.text)) return failed;
    DebugLog::write([&] { return "claude alerts: status line removed from " + m_settingsFile.string(); });
    return std::nullopt;
}

}  // namespace vantrelle
