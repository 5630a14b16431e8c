#include "agents/RegularFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace vantrelle {

FileDescriptor::~FileDescriptor() {
    if (m_fd >= 0) ::close(m_fd);
}

FileDescriptor openRegularFile(const std::filesystem::path& path) {
    // O_NONBLOCK: opening a FIFO for reading would otherwise wait until something opens it for writing.
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file.isOpen()) return file;
    struct stat info {};
    if (::fstat(file.get(), &info) != 0 || !S_ISREG(info.st_mode)) return FileDescriptor(-1);
    return file;
}

std::optional<std::string> readRegularFile(const std::filesystem::path& path, std::size_t limit) {
    const FileDescriptor file = openRegularFile(path);
    if (!file.isOpen()) return std::nullopt;
    std::string text;
    char block[4096];
    while (text.size() < limit) {
        const ssize_t got = ::read(file.get(), block, sizeof block);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        text.append(block, static_cast<std::size_t>(got));
    }
    if (text.size() > limit) text.resize(limit);
    return text;
}

}  // namespace vantrelle
