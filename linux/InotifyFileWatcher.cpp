#include "InotifyFileWatcher.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <vector>

namespace vantrelle {

class InotifyFileWatcher::Watch final : public FileWatch {
public:
    Watch(InotifyFileWatcher& owner, int descriptor, int id)
        : m_owner(owner), m_descriptor(descriptor), m_id(id) {}
    ~Watch() override { m_owner.remove(m_descriptor, m_id); }

private:
    InotifyFileWatcher& m_owner;
    int m_descriptor;
    int m_id;
};

InotifyFileWatcher::InotifyFileWatcher() {
    m_fd = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (m_fd < 0) return;
    m_notifier = new QSocketNotifier(m_fd, QSocketNotifier::Read, this);
    QObject::connect(m_notifier, &QSocketNotifier::activated, this, [this] { drain(); });
}

InotifyFileWatcher::~InotifyFileWatcher() {
    delete m_notifier;
    if (m_fd >= 0) ::close(m_fd);
}

std::unique_ptr<FileWatch> InotifyFileWatcher::watchFile(const std::filesystem::path& file,
                                                         std::function<void()> onChange) {
    return add(file, IN_MODIFY | IN_CLOSE_WRITE | IN_MOVE_SELF | IN_DELETE_SELF, std::move(onChange));
}

std::unique_ptr<FileWatch> InotifyFileWatcher::watchFolder(const std::filesystem::path& folder,
                                                           std::function<void()> onChange) {
    // Entry changes only: IN_MODIFY would wake for every block a download writes.
    return add(folder,
               IN_ONLYDIR | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_CLOSE_WRITE |
                   IN_MOVE_SELF | IN_DELETE_SELF,
               std::move(onChange));
}

std::unique_ptr<FileWatch> InotifyFileWatcher::add(const std::filesystem::path& path, std::uint32_t mask,
                                                   std::function<void()> onChange) {
    if (m_fd < 0) return nullptr;
    // IN_MASK_ADD: a second watch of the same path widens the events instead of replacing the first
    // watch's.
    const int descriptor = ::inotify_add_watch(m_fd, path.c_str(), mask | IN_MASK_ADD);
    if (descriptor < 0) return nullptr;
    const int id = m_nextId++;
    m_handlers[descriptor][id] = std::move(onChange);
    return std::make_unique<Watch>(*this, descriptor, id);
}

void InotifyFileWatcher::remove(int descriptor, int id) {
    auto it = m_handlers.find(descriptor);
    if (it == m_handlers.end() || it->second.erase(id) == 0 || !it->second.empty()) return;
    m_handlers.erase(it);
    ::inotify_rm_watch(m_fd, descriptor);
}

void InotifyFileWatcher::drain() {
    alignas(inotify_event) std::array<char, 4096> buffer{};
    std::vector<int> woken;
    for (;;) {
        const ssize_t length = ::read(m_fd, buffer.data(), buffer.size());
        if (length <= 0) break;
        for (ssize_t at = 0; at < length;) {
            const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + at);
            // Several appends in one burst wake the handler once.
            if (std::find(woken.begin(), woken.end(), event->wd) == woken.end()) woken.push_back(event->wd);
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    // Listed first and looked up again before each call: a handler may drop its own watch or another
    // one, whose owner may be gone by then. Ids are never reused, so a pair names one watch.
    std::vector<std::pair<int, int>> due;
    for (int descriptor : woken) {
        auto it = m_handlers.find(descriptor);
        if (it == m_handlers.end()) continue;
        for (const auto& [id, handler] : it->second) due.emplace_back(descriptor, id);
    }
    for (const auto& [descriptor, id] : due) {
        auto watches = m_handlers.find(descriptor);
        if (watches == m_handlers.end()) continue;
        auto watch = watches->second.find(id);
        if (watch == watches->second.end()) continue;
        const auto handler = watch->second;  // it may drop its own watch
        handler();
    }
}

}  // namespace vantrelle
