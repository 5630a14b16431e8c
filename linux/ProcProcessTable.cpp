#include "ProcProcessTable.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace vantrelle {

namespace {

std::string readSmallFile(const std::string& path) {
    std::string data;
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return data;
    char block[4096];
    while (true) {
        const ssize_t got = ::read(fd, block, sizeof block);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        data.append(block, static_cast<std::size_t>(got));
    }
    ::close(fd);
    return data;
}

}  // namespace

std::optional<std::vector<ProcessInfo>> ProcProcessTable::list(std::string& error) {
    DIR* dir = ::opendir(m_root.c_str());
    if (dir == nullptr) {
        error = std::strerror(errno);
        return std::nullopt;
    }
    std::vector<ProcessInfo> processes;
    while (const dirent* entry = ::readdir(dir)) {
        const char* name = entry->d_name;
        char* end = nullptr;
        const long pid = std::strtol(name, &end, 10);
        if (end == name || *end != '\0' || pid <= 0) continue;
        const std::string base = (m_root / name).string();
        std::string arguments = readSmallFile(base + "/cmdline");
        if (arguments.empty()) continue;  // kernel threads and processes that just ended
        if (arguments.back() == '\0') arguments.pop_back();
        const std::string first = arguments.substr(0, arguments.find('\0'));
        for (char& c : arguments) {
            if (c == '\0') c = ' ';
        }
        ProcessInfo info;
        info.pid = static_cast<pid_t>(pid);
        char target[4096];
        const ssize_t length = ::readlink((base + "/exe").c_str(), target, sizeof target - 1);
        info.executable = length > 0 ? std::string(target, static_cast<std::size_t>(length)) : first;
        info.arguments = std::move(arguments);
        processes.push_back(std::move(info));
    }
    ::closedir(dir);
    return processes;
}

}  // namespace vantrelle
