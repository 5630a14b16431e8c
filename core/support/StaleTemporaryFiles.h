#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vantrelle {

// Removes from `folder` the temporary files that a killed writer left behind: files named as
// writeFileAtomically names its temporaries and no longer locked by a live writer. `legacyNames` are
// files that an earlier version wrote through "<name>.XXXXXX" temporaries; leftovers of that shape are
// removed too. Only regular files are touched. Returns the paths removed; each is logged.
std::vector<std::filesystem::path> removeStaleTemporaryFiles(
    const std::filesystem::path& folder, const std::vector<std::string>& legacyNames = {});

}  // namespace vantrelle
