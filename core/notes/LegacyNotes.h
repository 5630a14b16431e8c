#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/Date.h"

namespace vantrelle {

// The single Markdown file earlier versions kept all notes in.
struct LegacyNotesFile {
    std::string text;
    std::optional<Date> created;  // the file system's birth time, when it records one
    std::optional<Date> modified;
};

// The legacy file, or nothing if it is missing or can't be read as a regular file.
[[nodiscard]] std::optional<LegacyNotesFile> readLegacyNotes(const std::filesystem::path& file);

// Where a migrated legacy file is moved: "notes.md" becomes "notes.md.migrated".
[[nodiscard]] std::filesystem::path migratedLegacyPath(const std::filesystem::path& file);

}  // namespace vantrelle
