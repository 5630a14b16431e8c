#include "monitors/ProcListeningPorts.h"

#include <dirent.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <unordered_map>

#include "monitors/ListeningOutput.h"
#include "monitors/ProcFiles.h"

namespace vantrelle {
namespace {

// "socket:[12345]" -> 12345, else 0.
std::uint64_t socketInode(const std::string& target) {
    constexpr std::string_view kPrefix = "socket:[";
    if (!target.starts_with(kPrefix) || target.back() != ']') return 0;
    return std::strtoull(target.c_str() + kPrefix.size(), nullptr, 10);
}

std::vector<pid_t> processIds(const std::filesystem::path& root) {
    std::vector<pid_t> pids;
    DIR* dir = ::opendir(root.c_str());
    if (dir == nullptr) return pids;
    while (const dirent* entry = ::readdir(dir)) {
        char* end = nullptr;
        const long pid = std::strtol(entry->d_name, &end, 10);
        if (end != entry->d_name && *end == '\0' && pid > 0) pids.push_back(static_cast<pid_t>(pid));
    }
    ::closedir(dir);
    return pids;
}

// Calls `found` with each listening inode that `pid` holds.
template <typename Found>
void forEachHeldInode(const std::filesystem::path& fdDir, Found&& found) {
    DIR* dir = ::opendir(fdDir.c_str());
    if (dir == nullptr) return;  // another user's process, or gone
    while (const dirent* entry = ::readdir(dir)) {
        if (entry->d_name[0] == '.') continue;
        if (const std::uint64_t inode = socketInode(procfs::linkTarget(fdDir / entry->d_name))) found(inode);
    }
    ::closedir(dir);
}

}  // namespace

std::optional<std::vector<ListeningSocket>> ProcListeningPorts::list(std::string& error) {
    const std::string v4 = procfs::readSmall(m_root / "net/tcp");
    const std::string v6 = procfs::readSmall(m_root / "net/tcp6");
    if (v4.empty() && v6.empty()) {
        error = "cannot read " + (m_root / "net/tcp").string();
        return std::nullopt;
    }
    std::unordered_map<std::uint64_t, std::int64_t> portOfInode;
    for (const auto* table : {&v4, &v6}) {
        for (const KernelListener& listener : parseProcNetTcp(*table))
            portOfInode[listener.inode] = listener.port;
    }
    std::vector<ListeningSocket> sockets;
    if (portOfInode.empty()) return sockets;
    for (const pid_t pid : processIds(m_root)) {
        const std::filesystem::path base = m_root / std::to_string(pid);
        std::string command;
        forEachHeldInode(base / "fd", [&](std::uint64_t inode) {
            const auto it = portOfInode.find(inode);
            if (it == portOfInode.end()) return;
            if (command.empty()) {
                command = procfs::readSmall(base / "comm");
                while (!command.empty() && command.back() == '\n') command.pop_back();
            }
            sockets.push_back({pid, command, it->second});
        });
    }
    return sockets;
}

}  // namespace vantrelle
