#include "files/ScreenshotScanEngine.h"

#include <vector>

#include "files/DownloadsScanEngine.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace fs = std::filesystem;

ScreenshotScanEngine::ScreenshotScanEngine(Dependencies deps)
    : m_deps(std::move(deps)), m_queue(m_deps.queues.make("screenshots")) {}

ScreenshotScanEngine::~ScreenshotScanEngine() {
    *m_alive = false;
}

void ScreenshotScanEngine::start(const fs::path& directory) {
    const std::uint64_t generation = ++m_generation;
    m_queue->async([this, directory] {
        m_directory = directory;
        m_known.clear();
        const auto listed = listTopLevel(directory);
        for (const fs::path& path : listed) m_known.insert(path.string());
        DebugLog::write([&] {
            return "screenshots: watching " + directory.string() + ", " + std::to_string(listed.size()) +
                   " existing items ignored";
        });
    });
    m_watch = m_deps.watcher.watchFolder(directory, [this, generation] {
        if (generation == m_generation) scheduleScan();
    });
    if (!m_watch) DebugLog::write([&] { return "screenshots: cannot watch " + directory.string(); });
}

void ScreenshotScanEngine::stop() {
    ++m_generation;
    m_debounce.cancel();
    m_watch.reset();
    m_queue->async([this] {
        m_directory.clear();
        m_known.clear();
    });
}

void ScreenshotScanEngine::scheduleScan() {
    m_debounce = m_deps.scheduler.schedule(kDebounce, [this, generation = m_generation] {
        m_debounce.detach();  // it ran: nothing is pending any more
        m_queue->async([this, generation, alive = std::weak_ptr<bool>(m_alive)] {
            if (m_directory.empty()) return;
            const auto listed = listTopLevel(m_directory);
            std::vector<fs::path> captures;
            std::set<std::string> listedNames;
            for (const fs::path& path : listed) {
                listedNames.insert(path.string());
                // Each name is looked at once: a file without the mark now never gets another look.
                if (!m_known.insert(path.string()).second) continue;
                if (m_deps.isCapture(path)) captures.push_back(path);
            }
            // A deleted name may be a new file later.
            std::erase_if(m_known, [&](const std::string& path) { return !listedNames.contains(path); });
            if (captures.empty()) return;
            m_deps.scheduler.post([this, alive, generation, captures = std::move(captures)] {
                if (alive.expired() || generation != m_generation || !onCapture) return;
                for (const fs::path& capture : captures) onCapture(capture);
            });
        });
    });
}

}  // namespace vantrelle
