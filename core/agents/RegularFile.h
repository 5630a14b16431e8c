#pragma once

#include <filesystem>

namespace vantrelle {

// Opens a file for reading only if it is a regular file, without ever waiting: a FIFO or a device
// where a log is expected is refused at once, since a blocking open of a FIFO waits for a writer.
// Returns the descriptor, for a FileDescriptor to own, or -1.
[[nodiscard]] int openRegularFile(const std::filesystem::path& path);

}  // namespace vantrelle
