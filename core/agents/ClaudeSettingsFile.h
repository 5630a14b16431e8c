#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vantrelle {

// Claude Code's settings file on disk, read and written with care: it belongs to another program and
// may hold the user's API keys.

struct ClaudeSettingsRead {
    enum class Status { ok, missing, failed };
    Status status = Status::missing;
    std::string text;    // when ok
    mode_t mode = 0600;  // when ok: the file's permission bits
    std::string reason;  // when failed: the system's reason, without the path
};

// Reads a regular file only, through links, never blocking: a named pipe or a device at the path is
// refused without being read, and so is a file too large to be settings.
[[nodiscard]] ClaudeSettingsRead readClaudeSettings(const std::filesystem::path& file);

// Writes `contents` to `backup` with `mode` unless something is there already: the first backup is
// the one that holds the user's own file, so a later edit never replaces it. Nothing on success, else
// the system's reason.
[[nodiscard]] std::optional<std::string> writeBackupOnce(const std::filesystem::path& backup,
                                                         std::string_view contents, mode_t mode);

// Replaces the settings atomically, keeping the file's mode and owner, writing through a link,
// refusing a read-only file. Nothing on success, else a sentence naming the file and the system's
// reason.
[[nodiscard]] std::optional<std::string> writeClaudeSettings(const std::filesystem::path& file,
                                                             std::string_view contents);

}  // namespace vantrelle
