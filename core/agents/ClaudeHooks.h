#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/Environment.h"
#include "support/AppPaths.h"

namespace vantrelle {

// Installs and removes the hooks in Claude Code's user settings that append each hook payload, as
// one line, to the events file the alert center watches. The user's file is kept key by key, backed
// up before every edit, and left alone when it cannot be understood.
class ClaudeHooks {
public:
    // Any command containing this text is ours.
    static constexpr const char* kMarker = "Vantrelle/claude-events.jsonl";

    ClaudeHooks(const AppPaths& paths, const Environment& environment);

    [[nodiscard]] const std::filesystem::path& eventsFile() const { return m_eventsFile; }
    [[nodiscard]] const std::filesystem::path& settingsFile() const { return m_settingsFile; }
    [[nodiscard]] std::filesystem::path backupFile() const;
    // The shell command Claude Code runs: copy the payload from standard input, add a line feed,
    // never fail.
    [[nodiscard]] const std::string& command() const { return m_command; }

    [[nodiscard]] bool isInstalled() const;
    // Each returns the text to show the user when it could not be done, nothing on success.
    [[nodiscard]] std::optional<std::string> install() const;
    [[nodiscard]] std::optional<std::string> uninstall() const;

private:
    std::filesystem::path m_eventsFile;
    std::filesystem::path m_settingsFile;
    std::string m_command;
};

}  // namespace vantrelle
