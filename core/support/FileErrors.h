#pragma once

#include <sys/types.h>

#include <string>

namespace vantrelle {

// The system's words for an errno value, e.g. "Permission denied".
[[nodiscard]] std::string systemReason(int error);

// Why a path that should hold a file can't be used as one, in plain words with the system's
// ("it is a folder, not a file (Is a directory)").
[[nodiscard]] std::string notARegularFile(mode_t mode);

}  // namespace vantrelle
