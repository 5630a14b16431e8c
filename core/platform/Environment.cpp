#include "platform/Environment.h"

#include <cstdlib>

namespace vantrelle {

std::optional<std::string> ProcessEnvironment::get(std::string_view name) const {
    const char* value = std::getenv(std::string(name).c_str());
    return value ? std::optional<std::string>(value) : std::nullopt;
}

ProcessEnvironment& ProcessEnvironment::shared() {
    static ProcessEnvironment environment;
    return environment;
}

}  // namespace vantrelle
