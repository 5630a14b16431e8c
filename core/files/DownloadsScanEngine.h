#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "files/InProgressDownload.h"
#include "platform/Clock.h"
#include "platform/FileWatcher.h"
#include "platform/Scheduler.h"
#include "platform/SerialQueue.h"

namespace vantrelle {

// Watches the top level of the Downloads folder and tells which downloads are running (by their
// marker names) and which files have just finished (no marker, and the same size in three looks at
// least half a second apart). Knows nothing of any browser. Scans run on the "downloads" queue, which
// owns the scan state; timers and the callback are on the main thread. Files present at start never
// count; a timer runs only while a marker exists or a new file is settling.
class DownloadsScanEngine {
public:
    static constexpr double kDebounce = 0.3;
    static constexpr double kSettleLook = 0.5;
    static constexpr double kPollInterval = 1.0;
    static constexpr std::size_t kHandledLimit = 200;

    struct Dependencies {
        std::filesystem::path directory;
        Scheduler& scheduler;
        const Clock& clock;
        QueueFactory& queues;
        FileWatcher& watcher;
    };
    using Update = std::function<void(const std::vector<InProgressDownload>& active,
                                      const std::vector<std::filesystem::path>& finished)>;

    explicit DownloadsScanEngine(Dependencies deps);
    ~DownloadsScanEngine();
    DownloadsScanEngine(const DownloadsScanEngine&) = delete;
    DownloadsScanEngine& operator=(const DownloadsScanEngine&) = delete;

    // Main thread, once: takes what is there as known, starts watching and scans.
    void start();

    // Called on the main thread with the result of every scan.
    Update onUpdate;

    [[nodiscard]] const std::filesystem::path& directory() const { return m_deps.directory; }
    // Main-thread state, for the watcher and for tests.
    [[nodiscard]] bool isWatching() const { return m_watch != nullptr; }
    [[nodiscard]] bool isPolling() const { return m_poll.isActive(); }
    [[nodiscard]] bool hasScanPending() const { return m_debounce.isActive() || m_followUp.isActive(); }
    [[nodiscard]] std::size_t scansRun() const { return m_scans; }

private:
    struct Settling {
        std::int64_t size = 0;
        int stable = 0;
    };
    // Owned by the queue.
    struct State {
        std::set<std::string> known;
        std::deque<std::string> handled;
        std::map<std::string, InProgressDownload> markers;
        std::map<std::string, Settling> settling;
    };
    struct Outcome {
        std::vector<InProgressDownload> active;
        std::vector<std::filesystem::path> finished;
        bool settling = false;
    };

    void folderChanged();
    void requestScan();
    void scanned(const Outcome& outcome);

    // On the queue.
    [[nodiscard]] Outcome scan();
    void scanMarkers(const std::vector<std::filesystem::path>& listed, std::set<std::string>& goneNames);
    void scanNewFiles(const std::vector<std::filesystem::path>& listed,
                      const std::set<std::string>& goneNames, std::set<std::string>& added);
    void settle(const std::set<std::string>& added, std::vector<std::filesystem::path>& finished);
    void remember(const std::vector<std::filesystem::path>& finished);

    Dependencies m_deps;
    std::unique_ptr<FileWatch> m_watch;
    WorkItem m_debounce;
    WorkItem m_followUp;
    RepeatingTimer m_poll;
    std::size_t m_scans = 0;
    State m_state;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    std::unique_ptr<SerialQueue> m_queue;  // last: joins before the state its work reads goes
};

// The folder's visible top-level entries, sorted; nothing when it can't be listed.
[[nodiscard]] std::vector<std::filesystem::path> listTopLevel(const std::filesystem::path& folder);

}  // namespace vantrelle
