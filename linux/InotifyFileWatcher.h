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
    void remove(int descriptor);

    int m_fd = -1;
    QSocketNotifier* m_notifier = nullptr;
    std::map<int, std::function<void()>> m_handlers;
};

}  // namespace vantrelle
