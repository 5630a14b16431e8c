#include "CommandPath.h"

#include <cstdlib>
#include <filesystem>

namespace vantrelle {

std::string commandPath() {
    if (const char* handedOver = std::getenv(kCommandPathVariable);
        handedOver && std::filesystem::path(handedOver).is_absolute())
        return handedOver;
    std::error_code error;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string() : self.string();
}

}  // namespace vantrelle
