#include "support/AtomicFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <random>

#include "support/FileDescriptor.h"
#include "support/FileErrors.h"

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kTemporaryMarker = ".vantrelle-tmp-";
constexpr std::size_t kSuffixLength = 6;
constexpr std::string_view kSuffixAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";

// Where the bytes really go: the file itself, or the end of its chain of symbolic links.
struct Target {
    fs::path requested;
    fs::path real;
    [[nodiscard]] std::string describe() const {
        if (real == requested) return requested.string();
        return requested.string() + " (a link to " + real.string() + ")";
    }
    [[nodiscard]] WriteResult fail(std::string_view reason) const {
        return WriteResult::failure("Couldn't write " + describe() + ": " + std::string(reason));
    }
};

// Follows the last component's links; the kernel follows the ones in the folders above it. A dangling
// link resolves to the file it names, which the write then creates.
int resolveLinks(Target& target) {
    fs::path current = target.requested;
    for (int hops = 0; hops < 40; ++hops) {
        std::error_code error;
        const fs::file_status status = fs::symlink_status(current, error);
        if (error && error != std::errc::no_such_file_or_directory) return error.value();
        if (!fs::is_symlink(status)) {
            target.real = current;
            return 0;
        }
        const fs::path next = fs::read_symlink(current, error);
        if (error) return error.value();
        current = next.is_absolute() ? next : current.parent_path() / next;
    }
    return ELOOP;
}

// "The user made it read-only": no write permission for us. The superuser passes every permission
// check, so for it a file counts as read-only when nobody may write it.
bool isReadOnlyForUs(const fs::path& file, const struct stat& info) {
    if (::geteuid() == 0) return (info.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
    return ::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) != 0 && errno == EACCES;
}

// The mode a new file gets: what open(0666) would give under the process's umask. Read from the
// kernel's status file, because umask() can only be read by changing it, which races other threads.
mode_t newFileMode() {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind("Umask:", 0) == 0)
            return 0666 & ~static_cast<mode_t>(std::strtoul(line.c_str() + 6, nullptr, 8));
    }
    return 0644;
}

std::string randomSuffix() {
    thread_local std::mt19937_64 generator{std::random_device{}() ^ static_cast<std::uint64_t>(::getpid())};
    std::uniform_int_distribution<std::size_t> pick(0, kSuffixAlphabet.size() - 1);
    std::string suffix(kSuffixLength, 'X');
    for (char& c : suffix) c = kSuffixAlphabet[pick(generator)];
    return suffix;
}

// A new, empty, private temporary file beside `real`, locked for as long as this writer lives, so that
// the start-up sweep can tell a live writer's file from a killed one's.
int openTemporary(const fs::path& real, FileDescriptor& fd, fs::path& temporary) {
    const fs::path folder = real.has_parent_path() ? real.parent_path() : fs::path(".");
    for (int attempt = 0; attempt < 100; ++attempt) {
        temporary = folder / (temporaryFilePrefix(real) + randomSuffix());
        fd.reset(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600));
        if (!fd.isOpen()) {
            if (errno == EEXIST) continue;
            return errno;
        }
        // Lost to a sweep that locked it first: that sweep removes it, we take another name.
        if (::flock(fd.get(), LOCK_EX | LOCK_NB) == 0) return 0;
    }
    fd.reset();
    return EEXIST;
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

// The replaced file's owner and mode, set before any byte is written so that private contents are
// never readable through the temporary file.
WriteResult takeOverAttributes(const Target& target, int fd, const std::optional<struct stat>& old) {
    if (old) {
        struct stat mine {};
        if (::fstat(fd, &mine) != 0) return target.fail(systemReason(errno));
        if ((mine.st_uid != old->st_uid || mine.st_gid != old->st_gid) &&
            ::fchown(fd, old->st_uid, old->st_gid) != 0) {
            return target.fail("couldn't keep its owner " + std::to_string(old->st_uid) + ":" +
                               std::to_string(old->st_gid) + " (" + systemReason(errno) + ")");
        }
    }
    const mode_t mode = old ? (old->st_mode & 07777) : newFileMode();
    if (::fchmod(fd, mode) != 0) return target.fail("couldn't set its mode (" + systemReason(errno) + ")");
    return WriteResult::success();
}

void syncFolder(const fs::path& real) {
    const fs::path folder = real.has_parent_path() ? real.parent_path() : fs::path(".");
    FileDescriptor fd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // The rename is done and visible; a folder that can't be flushed costs durability, not the data.
    if (fd.get() >= 0) (void)::fsync(fd.get());
}

// Checks the existing file: it must be a regular file we may write. Returns its attributes.
WriteResult inspectExisting(const Target& target, std::optional<struct stat>& old) {
    struct stat info {};
    if (::stat(target.real.c_str(), &info) != 0) {
        if (errno == ENOENT) return WriteResult::success();
        return target.fail(systemReason(errno));
    }
    if (!S_ISREG(info.st_mode)) return target.fail(notARegularFile(info.st_mode));
    if (isReadOnlyForUs(target.real, info))
        return target.fail("the file is read-only (" + systemReason(EACCES) + ")");
    old = info;
    return WriteResult::success();
}

WriteResult replaceWith(const Target& target, std::string_view contents,
                        const std::optional<struct stat>& old) {
    FileDescriptor fd;
    fs::path temporary;
    if (const int error = openTemporary(target.real, fd, temporary)) {
        return target.fail("couldn't create a temporary file in " + target.real.parent_path().string() +
                           " (" + systemReason(error) + ")");
    }
    const auto discard = [&](WriteResult result) {
        ::unlink(temporary.c_str());
        return result;
    };
    if (auto taken = takeOverAttributes(target, fd.get(), old); !taken) return discard(std::move(taken));
    if (!writeAll(fd.get(), contents) || ::fsync(fd.get()) != 0) {
        return discard(target.fail(systemReason(errno) + " while writing"));
    }
    // Renamed while still open and locked: the sweep never sees our file unlocked under its name.
    if (::rename(temporary.c_str(), target.real.c_str()) != 0) {
        return discard(target.fail("couldn't replace it (" + systemReason(errno) + ")"));
    }
    syncFolder(target.real);
    fd.close();
    return WriteResult::success();
}

}  // namespace

std::string temporaryFilePrefix(const fs::path& path) {
    // Long names are cut so that the temporary name still fits the file system's limit of 255 bytes.
    std::string name = path.filename().string().substr(0, 200);
    return "." + name + std::string(kTemporaryMarker);
}

bool isTemporaryFileName(std::string_view name) {
    const std::size_t marker = name.rfind(kTemporaryMarker);
    if (name.empty() || name.front() != '.' || marker == std::string_view::npos) return false;
    const std::string_view suffix = name.substr(marker + kTemporaryMarker.size());
    return suffix.size() == kSuffixLength &&
           suffix.find_first_not_of(kSuffixAlphabet) == std::string_view::npos;
}

WriteResult writeFileAtomically(const fs::path& path, std::string_view contents) {
    Target target{path, path};
    if (path.has_parent_path()) {
        std::error_code error;
        fs::create_directories(path.parent_path(), error);
        if (error) {
            return target.fail("couldn't create the folder " + path.parent_path().string() + " (" +
                               systemReason(error.value()) + ")");
        }
    }
    if (const int error = resolveLinks(target)) return target.fail(systemReason(error));
    std::optional<struct stat> old;
    if (auto inspected = inspectExisting(target, old); !inspected) return inspected;
    return replaceWith(target, contents, old);
}

}  // namespace vantrelle
