#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vantrelle {

// "file:///home/a/b%20c.png" to "/home/a/b c.png". Only local file URLs (empty host or "localhost")
// give a path; anything else, and a path with a NUL in it, gives nothing.
[[nodiscard]] std::optional<std::filesystem::path> pathFromFileUrl(std::string_view url);

// The reverse, percent-encoding every byte outside the unreserved set and "/".
[[nodiscard]] std::string fileUrlFromPath(const std::filesystem::path& path);

}  // namespace vantrelle
