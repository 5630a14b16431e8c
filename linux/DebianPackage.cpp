#include "DebianPackage.h"

#include <fstream>
#include <string>

namespace vantrelle {

bool installedByPackage(std::string_view package, const std::filesystem::path& file,
                        const std::filesystem::path& info) {
    std::error_code error;
    const auto real = std::filesystem::canonical(file, error);
    if (error || package.empty()) return false;
    std::ifstream list(info / (std::string(package) + ".list"));
    std::string line;
    while (std::getline(list, line)) {
        if (line.empty() || line.front() != '/') continue;
        // Listed paths may go through symbolic links (/bin into /usr/bin): compare where they lead.
        if (line == real.string() || std::filesystem::canonical(line, error) == real) return true;
    }
    return false;
}

}  // namespace vantrelle
