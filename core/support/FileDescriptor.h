#pragma once

#include <unistd.h>

namespace vantrelle {

// An open file descriptor, closed on every path out.
class FileDescriptor {
public:
    explicit FileDescriptor(int fd = -1) : m_fd(fd) {}
    ~FileDescriptor() { reset(); }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    [[nodiscard]] int get() const { return m_fd; }
    [[nodiscard]] bool isOpen() const { return m_fd >= 0; }

    // Closes now and returns close()'s result, so that a late write error some file systems report
    // only there is seen.
    int close() {
        const int result = m_fd >= 0 ? ::close(m_fd) : 0;
        m_fd = -1;
        return result;
    }
    void reset(int fd = -1) {
        (void)close();
        m_fd = fd;
    }

private:
    int m_fd;
};

}  // namespace vantrelle
