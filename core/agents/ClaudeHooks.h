#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "agents/ClaudeSettingsEdit.h"
#include "platform/Environment.h"
#include "support/AppPaths.h"

namespace vantrelle {

// Installs and removes the hooks in Claude Code's user settings that append each hook payload, as
// one line, to the events file the alert center watches. The user's file is edited in place: what we
// don't add or remove keeps its bytes, its mode and its link. It is backed up once, before our first
// change, and left alone, with a message that names it, when it can't be understood. Every call reads
// or writes the file: keep them off the main thread (ClaudeHookSwitch does).
class ClaudeHooks {
public:
    static constexpr std::string_view kMarker = kClaudeHookMarker;

    struct Status {
        bool installed = false;
        std::optional<std::string> problem;  // why the settings can't be read, naming the file
    };

    ClaudeHooks(const AppPaths& paths, const Environment& environment);

    [[nodiscard]] const std::filesystem::path& eventsFile() const { return m_eventsFile; }
    [[nodiscard]] const std::filesystem::path& settingsFile() const { return m_settingsFile; }
    [[nodiscard]] std::filesystem::path backupFile() const;
    // The shell command Claude Code runs: copy the payload from standard input, add a line feed,
    // never fail.
    [[nodiscard]] const std::string& command() const { return m_command; }

    [[nodiscard]] Status status() const;
    [[nodiscard]] bool isInstalled() const { return status().installed; }
    // Each returns the text to show the user when it could not be done, nothing on success.
    [[nodiscard]] std::optional<std::string> install() const;
    [[nodiscard]] std::optional<std::string> uninstall() const;
    // What the switch does: install() or uninstall(), with a refusal logged.
    [[nodiscard]] std::optional<std::string> setInstalled(bool installed) const;

    // The status line, with the same care: `command` runs `vantrelle statusline`. A status line of the
    // user's own is never replaced unless `replace` says so; uninstalling takes out only ours.
    struct StatusLineStatus {
        ClaudeStatusLine state = ClaudeStatusLine::none;
        std::string command;                 // the one set, ours or not
        std::optional<std::string> problem;  // why the settings can't be read, naming the file
    };
    [[nodiscard]] StatusLineStatus statusLineStatus() const;
    [[nodiscard]] std::optional<std::string> installStatusLine(const std::string& command,
                                                               bool replace) const;
    [[nodiscard]] std::optional<std::string> uninstallStatusLine() const;

private:
    std::filesystem::path m_eventsFile;
    std::filesystem::path m_settingsFile;
    std::string m_command;
};

}  // namespace vantrelle
