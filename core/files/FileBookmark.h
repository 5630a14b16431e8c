#pragma once

#include <filesystem>
#include <optional>

#include "platform/DefaultsStore.h"

namespace vantrelle {

// A file reference that survives a rename: the path together with the file's device and inode.
// Resolving tries the path first, then looks for the same inode in the folder the file was in, so a
// file renamed in place is followed. Moves to another folder are not followed; Linux has no index
// from inode to name that would allow it cheaply.
[[nodiscard]] std::optional<Bytes> makeFileBookmark(const std::filesystem::path& file);

// The file's current path, or nothing when it can't be found (or the bytes are no bookmark).
[[nodiscard]] std::optional<std::filesystem::path> resolveFileBookmark(const Bytes& bookmark);

}  // namespace vantrelle
