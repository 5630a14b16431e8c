#include "support/ReadFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "support/FileDescriptor.h"
#include "support/FileErrors.h"

namespace vantrelle {

namespace {

ReadResult failed(const std::filesystem::path& path, const std::string& reason) {
    return ReadResult{ReadResult::Status::failed, {}, "Couldn't read " + path.string() + ": " + reason};
}

}  // namespace

ReadResult readRegularFile(const std::filesystem::path& path) {
    // O_NONBLOCK: opening a named pipe with no writer would otherwise wait forever.
    FileDescriptor fd(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (!fd.isOpen()) {
        if (errno == ENOENT) return ReadResult{};
        return failed(path, systemReason(errno));
    }
    struct stat info {};
    if (::fstat(fd.get(), &info) != 0) return failed(path, systemReason(errno));
    if (!S_ISREG(info.st_mode)) return failed(path, notARegularFile(info.st_mode));

    ReadResult result{ReadResult::Status::ok, {}, {}};
    result.contents.reserve(static_cast<std::size_t>(info.st_size));
    char buffer[64 * 1024];
    for (;;) {
        const ssize_t got = ::read(fd.get(), buffer, sizeof buffer);
        if (got == 0) break;
        if (got < 0) {
            if (errno == EINTR) continue;
            return failed(path, systemReason(errno));
        }
        result.contents.append(buffer, static_cast<std::size_t>(got));
    }
    return result;
}

std::optional<std::string> readWholeFile(const std::filesystem::path& path) {
    ReadResult result = readRegularFile(path);
    if (result.status != ReadResult::Status::ok) return std::nullopt;
    return std::move(result.contents);
}

}  // namespace vantrelle
