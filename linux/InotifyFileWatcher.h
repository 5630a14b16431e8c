#pragma once

#include <QObject>
#include <cstdint>
#include <functional>
#include <map>

#include "platform/FileWatcher.h"

class QSocketNotifier;

namespace vantrelle {

// File watches on one inotify descriptor, woken through the Qt event loop.
class InotifyFileWatcher final : public QObject, public FileWatcher {
public:
    InotifyFileWatcher();
    ~InotifyFileWatcher() override;

    [[nodiscard]] std::unique_ptr<FileWatch> watchFile(const std::filesystem::path& file,
                                                       std::function<void()> onChange) override;
    [[nodiscard]] std::unique_ptr<FileWatch> watchFolder(const std::filesystem::path& folder,
                                                         std::function<void()> onChange) override;

private:
    class Watch;
    std::unique_ptr<FileWatch> add(const std::filesystem::path& path, std::uint32_t mask,
                                   std::function<void()> onChange);
    void drain();
    void remove(int descriptor, int id);

    int m_fd = -1;
    QSocketNotifier* m_notifier = nullptr;
    // inotify hands out one descriptor per path, so two watches of one path share it: descriptor ->
    // watch id -> handler. The descriptor is given back when its last watch goes.
    std::map<int, std::map<int, std::function<void()>>> m_handlers;
    int m_nextId = 0;
};

}  // namespace vantrelle
