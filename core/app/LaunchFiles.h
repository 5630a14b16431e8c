#pragma once

#include <filesystem>
#include <vector>

#include "app/LegacyMigration.h"
#include "support/AppPaths.h"

namespace vantrelle {

// The program's own files, put in order before any store opens one: the data of the program's earlier
// name is moved into the data root, then the temporary files of writes that a killed process left are
// removed from the config and data roots. The composition root runs this first; a store that opened
// its file before the migration would write its fresh state over the migrated one.
void prepareLaunchFiles(
    const AppPaths& paths, const Clock& clock,
    const LegacyMigration::CreationDate& creationDate = LegacyMigration::fileCreationDate);

// The same sweep beside files of other programs that we edit (Claude Code's settings, the autostart
// entry): in each file's folder and, for a symbolic link, in its target's folder, where the write
// puts its temporary file.
void removeStaleTemporaryFilesBeside(const std::vector<std::filesystem::path>& files);

}  // namespace vantrelle
