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
    Watch(InotifyFileWatcher& owner, int descriptor) : m_owner(owner), m_descriptor(descriptor) {}
    ~Watch() override { m_owner.remove(m_descriptor); }

private:
    InotifyFileWatcher& m_owner;
    int m_descriptor;
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
    // IN_ONLYDIR: a file given by mistake is refused rather than watched with the wrong meaning.
    return add(folder,
               IN_CREATE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_CLOSE_WRITE | IN_MODIFY |
                   IN_MOVE_SELF | IN_DELETE_SELF | IN_ONLYDIR,
               std::move(onChange));
}

std::unique_ptr<FileWatch> InotifyFileWatcher::add(const std::filesystem::path& path, std::uint32_t mask,
                                                   std::function<void()> onChange) {
    if (m_fd < 0) return nullptr;
    const int descriptor = ::inotify_add_watch(m_fd, path.c_str(), mask);
    if (descriptor < 0) return nullptr;
    m_handlers[descriptor] = std::move(onChange);
    return std::make_unique<Watch>(*this, descriptor);
}

void InotifyFileWatcher::remove(int descriptor) {
    if (m_handlers.erase(descriptor) > 0) ::inotify_rm_watch(m_fd, descriptor);
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
    for (int descriptor : woken) {
        auto it = m_handlers.find(descriptor);
        if (it == m_handlers.end()) continue;
        auto handler = it->second;  // the handler may drop its own watch
        handler();
    }
}

}  // namespace vantrelle
