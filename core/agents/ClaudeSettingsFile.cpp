#include "agents/ClaudeSettingsFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "support/AtomicFile.h"
#include "support/FileErrors.h"

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

// Settings files are a few kilobytes; anything near this is not one, and reading it whole would cost.
constexpr off_t kMaxSettingsSize = off_t{16} * 1024 * 1024;

ClaudeSettingsRead failed(std::string reason) {
    ClaudeSettingsRead read;
    read.status = ClaudeSettingsRead::Status::failed;
    read.reason = std::move(reason);
    return read;
}

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

// Moves `from` to `to` unless `to` exists. Hard links serve where the file system can't rename
// without replacing.
int renameNoReplace(const char* from, const char* to) {
    if (::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return errno;
    if (::link(from, to) != 0) return errno;
    ::unlink(from);
    return 0;
}

}  // namespace

ClaudeSettingsRead readClaudeSettings(const fs::path& file) {
    // Looked at before opening, so a pipe or device is never opened at all.
    struct stat info {};
    if (::stat(file.c_str(), &info) != 0) {
        if (errno == ENOENT) return {};
        return failed(systemReason(errno));
    }
    if (!S_ISREG(info.st_mode)) return failed(notARegularFile(info.st_mode));

    // Non-blocking all the same: the path can change between the look and the open.
    const int fd = ::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) {
        if (errno == ENOENT) return {};
        return failed(systemReason(errno));
    }
    ClaudeSettingsRead read;
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        const int error = errno;
        ::close(fd);
        return failed(S_ISREG(info.st_mode) ? systemReason(error) : notARegularFile(info.st_mode));
    }
    if (info.st_size > kMaxSettingsSize) {
        ::close(fd);
        return failed("it is larger than 16 MB, too large for a settings file");
    }
    read.mode = info.st_mode & 07777;
    char buffer[16384];
    for (;;) {
        const ssize_t got = ::read(fd, buffer, sizeof buffer);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) {
            const int error = errno;
            ::close(fd);
            return failed(systemReason(error));
        }
        if (got == 0) break;
        read.text.append(buffer, static_cast<std::size_t>(got));
        if (read.text.size() > static_cast<std::size_t>(kMaxSettingsSize)) {
            ::close(fd);
            return failed("it is larger than 16 MB, too large for a settings file");
        }
    }
    ::close(fd);
    read.status = ClaudeSettingsRead::Status::ok;
    return read;
}

std::optional<std::string> writeBackupOnce(const fs::path& backup, std::string_view contents, mode_t mode) {
    // The first backup stays. Something else under its name is no backup: better no edit than one
    // without a copy of the user's file.
    struct stat info {};
    if (::lstat(backup.c_str(), &info) == 0) {
        if (::stat(backup.c_str(), &info) != 0) return systemReason(errno);
        return S_ISREG(info.st_mode) ? std::nullopt : std::optional(notARegularFile(info.st_mode));
    }

    // Named and locked as the atomic writer's temporaries are, so a start-up sweep knows a killed
    // one from a live one.
    std::string temporary = (backup.parent_path() / (temporaryFilePrefix(backup) + "XXXXXX")).string();
    const int fd = ::mkostemp(temporary.data(), O_CLOEXEC);
    if (fd < 0) return systemReason(errno);
    int error = ::flock(fd, LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
    if (error == 0 && (::fchmod(fd, mode & 07777) != 0 || !writeAll(fd, contents) || ::fsync(fd) != 0))
        error = errno;
    // Renamed while still locked: the sweep never finds our file unlocked under its name.
    if (error == 0) error = renameNoReplace(temporary.c_str(), backup.c_str());
    if (error != 0) ::unlink(temporary.c_str());
    ::close(fd);
    if (error == EEXIST) return std::nullopt;  // one appeared meanwhile: that one is the first
    if (error != 0) return systemReason(error);
    return std::nullopt;
}

std::optional<std::string> writeClaudeSettings(const fs::path& file, std::string_view contents) {
    auto written = writeFileAtomically(file, contents);
    if (!written) return written.error();
    return std::nullopt;
}

}  // namespace vantrelle
