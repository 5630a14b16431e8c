#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vantrelle {

// Replaces `path` with `contents` in one step: a temporary file beside it is written, flushed to disk
// and renamed over the target, so a reader sees the old file or the new one, never half of one.
// Creates missing parent folders. Returns false (and leaves the old file) on any failure.
[[nodiscard]] bool writeFileAtomically(const std::filesystem::path& path, std::string_view contents);

// The whole file, or nothing if it cannot be read.
[[nodiscard]] std::optional<std::string> readWholeFile(const std::filesystem::path& path);

}  // namespace vantrelle
