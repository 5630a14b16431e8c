#include "monitors/DevServer.h"

namespace vantrelle {

std::string DevServer::project() const {
    std::string_view path = cwd;
    while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
    const std::size_t slash = path.rfind('/');
    return std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
}

}  // namespace vantrelle
