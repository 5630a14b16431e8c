#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace vantrelle {

// An open descriptor, closed at the end of its scope.
class FileDescriptor {
public:
    explicit FileDescriptor(int fd) : m_fd(fd) {}
    ~FileDescriptor();
    FileDescriptor(FileDescriptor&& other) noexcept : m_fd(other.m_fd) { other.m_fd = -1; }
    FileDescriptor& operator=(FileDescriptor&&) = delete;
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    [[nodiscard]] int get() const { return m_fd; }
    [[nodiscard]] bool isOpen() const { return m_fd >= 0; }

private:
    int m_fd;
};

// Opens a file for reading only if it is a regular file, without ever waiting: a FIFO or a device
// where a log is expected is refused at once, since a blocking open of a FIFO waits for a writer.
[[nodiscard]] FileDescriptor openRegularFile(const std::filesystem::path& path);

// The first `limit` bytes of a regular file; nothing for anything else or when it can't be read.
[[nodiscard]] std::optional<std::string> readRegularFile(const std::filesystem::path& path,
                                                         std::size_t limit);

}  // namespace vantrelle
