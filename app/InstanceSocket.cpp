#include "InstanceSocket.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>

#include "support/FileDescriptor.h"

namespace vantrelle {

namespace {

constexpr std::size_t kMaxReply = 16u << 20;

int millisecondsLeft(std::chrono::steady_clock::time_point deadline) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    return left.count() > 0 ? static_cast<int>(left.count()) : 0;
}

bool waitFor(int fd, short events, std::chrono::steady_clock::time_point deadline) {
    pollfd entry{fd, events, 0};
    for (;;) {
        const int ready = ::poll(&entry, 1, millisecondsLeft(deadline));
        if (ready > 0) return true;
        if (ready == 0 || errno != EINTR) return false;
    }
}

}  // namespace

std::optional<std::string> askInstanceSocket(const std::filesystem::path& socketPath, const std::string& line,
                                             int timeoutMs) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = socketPath.string();
    if (path.size() >= sizeof(address.sun_path)) return std::nullopt;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);

    FileDescriptor fd(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!fd.isOpen()) return std::nullopt;
    if (::connect(fd.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) {
        if (errno != EINPROGRESS && errno != EAGAIN) return std::nullopt;
        if (!waitFor(fd.get(), POLLOUT, deadline)) return std::nullopt;
        int error = 0;
        socklen_t size = sizeof(error);
        if (::getsockopt(fd.get(), SOL_SOCKET, SO_ERROR, &error, &size) != 0 || error != 0)
            return std::nullopt;
    }

    const std::string request = line + "\n";
    std::size_t sent = 0;
    while (sent < request.size()) {
        const auto n = ::send(fd.get(), request.data() + sent, request.size() - sent, MSG_NOSIGNAL);
        if (n > 0) {
            sent += static_cast<std::size_t>(n);
        } else if (n < 0 && (errno == EAGAIN || errno == EINTR)) {
            if (!waitFor(fd.get(), POLLOUT, deadline)) return std::nullopt;
        } else {
            return std::nullopt;
        }
    }

    std::string reply;
    char buffer[16384];
    for (;;) {
        const auto newline = reply.find('\n');
        if (newline != std::string::npos) return reply.substr(0, newline);
        if (reply.size() > kMaxReply) return std::nullopt;
        const auto n = ::recv(fd.get(), buffer, sizeof(buffer), 0);
        if (n > 0) {
            reply.append(buffer, static_cast<std::size_t>(n));
        } else if (n < 0 && (errno == EAGAIN || errno == EINTR)) {
            if (!waitFor(fd.get(), POLLIN, deadline)) return std::nullopt;
        } else {
            return std::nullopt;  // closed before a whole line
        }
    }
}

}  // namespace vantrelle
