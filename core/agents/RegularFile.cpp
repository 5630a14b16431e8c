#include "agents/RegularFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantrelle {

int openRegularFile(const std::filesystem::path& path) {
    // O_NONBLOCK: opening a FIFO for reading would otherwise wait until something opens it for writing.
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (fd < 0) return -1;
    struct stat info {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        ::close(fd);
        return -1;
    }
    return fd;
}

}  // namespace vantrelle
