#include "monitors/ProcFiles.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace vantrelle::procfs {

std::string readSmall(const std::filesystem::path& path) {
    std::string data;
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return data;
    char block[8192];
    while (true) {
        const ssize_t got = ::read(fd, block, sizeof block);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        data.append(block, static_cast<std::size_t>(got));
    }
    ::close(fd);
    return data;
}

std::string linkTarget(const std::filesystem::path& path) {
    char target[4096];
    const ssize_t length = ::readlink(path.c_str(), target, sizeof target - 1);
    return length > 0 ? std::string(target, static_cast<std::size_t>(length)) : std::string();
}

}  // namespace vantrelle::procfs
