#include "support/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <sstream>

namespace vantrelle {

namespace {

bool writeAll(int fd, std::string_view contents) {
    while (!contents.empty()) {
        const ssize_t written = ::write(fd, contents.data(), contents.size());
        if (written < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        contents.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

}  // namespace

bool writeFileAtomically(const std::filesystem::path& path, std::string_view contents) {
    std::error_code error;
    if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path(), error);

    std::string temporary = path.string() + ".XXXXXX";
    const int fd = ::mkstemp(temporary.data());
    if (fd < 0) return false;

    // mkstemp creates 0600; stores are ordinary user files.
    ::fchmod(fd, 0644);
    const bool ok = writeAll(fd, contents) && ::fsync(fd) == 0;
    ::close(fd);
    if (!ok || ::rename(temporary.c_str(), path.c_str()) != 0) {
        ::unlink(temporary.c_str());
        return false;
    }
    return true;
}

std::optional<std::string> readWholeFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    std::ostringstream buffer;
    buffer << in.rdbuf();
    if (in.bad()) return std::nullopt;
    return std::move(buffer).str();
}

}  // namespace vantrelle
