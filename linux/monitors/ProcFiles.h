#pragma once

#include <filesystem>
#include <string>

namespace vantrelle::procfs {

// A small pseudo-file read whole (sizes under /proc are reported as 0, so read to the end).
[[nodiscard]] std::string readSmall(const std::filesystem::path& path);
// The target of a symbolic link, or empty when it can't be read.
[[nodiscard]] std::string linkTarget(const std::filesystem::path& path);

}  // namespace vantrelle::procfs
