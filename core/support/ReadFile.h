#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace vantrelle {

// What reading a file found.
struct ReadResult {
    enum class Status { ok, missing, failed };
    Status status = Status::missing;
    std::string contents;  // when ok
    std::string error;     // when failed: the file and the system's reason
};

// Reads a regular file whole, following links. Never blocks on a named pipe or a device: anything
// but a regular file is refused with a message.
[[nodiscard]] ReadResult readRegularFile(const std::filesystem::path& path);

// The whole file, or nothing if it is missing, cannot be read or isn't a regular file.
[[nodiscard]] std::optional<std::string> readWholeFile(const std::filesystem::path& path);

}  // namespace vantrelle
