#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <string>

#include "platform/FileWatcher.h"
#include "platform/Scheduler.h"
#include "platform/SerialQueue.h"

namespace vantrelle {

// Finds new screen captures in one folder. What is there at start never counts, and each new name is
// looked at once. Scans run on the "screenshots" queue, which owns `known`; the watch, the debounce
// and the callback are on the main thread.
class ScreenshotScanEngine {
public:
    static constexpr double kDebounce = 0.5;

    struct Dependencies {
        Scheduler& scheduler;
        QueueFactory& queues;
        FileWatcher& watcher;
        // Whether a screenshot tool wrote the file; runs on the queue.
        std::function<bool(const std::filesystem::path&)> isCapture;
    };

    explicit ScreenshotScanEngine(Dependencies deps);
    ~ScreenshotScanEngine();
    ScreenshotScanEngine(const ScreenshotScanEngine&) = delete;
    ScreenshotScanEngine& operator=(const ScreenshotScanEngine&) = delete;

    // Main thread. A start takes a fresh listing; stop forgets everything.
    void start(const std::filesystem::path& directory);
    void stop();

    // Called on the main thread for each new capture.
    std::function<void(const std::filesystem::path&)> onCapture;

    [[nodiscard]] bool isWatching() const { return m_watch != nullptr; }
    [[nodiscard]] bool hasScanPending() const { return m_debounce.isActive(); }

private:
    void scheduleScan();

    Dependencies m_deps;
    std::unique_ptr<FileWatch> m_watch;
    WorkItem m_debounce;
    // A start after a stop must not take results of the older run.
    std::uint64_t m_generation = 0;
    // Owned by the queue.
    std::filesystem::path m_directory;
    std::set<std::string> m_known;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    std::unique_ptr<SerialQueue> m_queue;  // last: joins before the state its work reads goes
};

}  // namespace vantrelle
