#include "app/LaunchFiles.h"

#include <set>

#include "support/StaleTemporaryFiles.h"
#include "wrapped/WrappedHistory.h"

namespace vantrelle {

namespace fs = std::filesystem;

void prepareLaunchFiles(const AppPaths& paths, const Clock& clock,
                        const LegacyMigration::CreationDate& creationDate) {
    LegacyMigration(clock, creationDate).migrate(paths.legacyRoot(), paths.dataRoot());
    // An earlier version left "<name>.XXXXXX" temporaries of these two when it was killed mid-save.
    const std::vector<std::string> earlierTemporaries = {
        paths.defaultsFile().filename().string(),
        WrappedHistory::defaultFile(paths.dataRoot()).filename().string()};
    for (const fs::path& root : {paths.configRoot(), paths.dataRoot()}) {
        (void)removeStaleTemporaryFiles(root, earlierTemporaries);
    }
}

void removeStaleTemporaryFilesBeside(const std::vector<fs::path>& files) {
    std::set<fs::path> folders;
    for (const fs::path& file : files) {
        folders.insert(file.parent_path());
        std::error_code error;
        if (fs::is_symlink(fs::symlink_status(file, error))) {
            const fs::path target = fs::weakly_canonical(file, error);
            if (!error) folders.insert(target.parent_path());
        }
    }
    for (const fs::path& folder : folders) (void)removeStaleTemporaryFiles(folder);
}

}  // namespace vantrelle
