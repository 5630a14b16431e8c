#include "instance/InstanceFolder.h"

namespace vantrelle {

std::filesystem::path instanceFolder(const Environment& environment, const AppPaths& paths) {
    if (auto runtime = environment.get("XDG_RUNTIME_DIR")) {
        const std::filesystem::path folder(*runtime);
        if (folder.is_absolute()) return folder / "vantrelle";
    }
    return paths.cacheRoot();
}

}  // namespace vantrelle
