#pragma once

#include <filesystem>

#include "platform/Environment.h"
#include "support/AppPaths.h"

namespace vantrelle {

// Where the running instance keeps its lock and socket: the user's runtime folder when the session has
// one (private to the user, gone at logout), else the cache folder.
[[nodiscard]] std::filesystem::path instanceFolder(const Environment& environment, const AppPaths& paths);

}  // namespace vantrelle
