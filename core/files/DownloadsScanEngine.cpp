#include "files/DownloadsScanEngine.h"

#include <algorithm>

#include "files/DownloadMarkers.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace fs = std::filesystem;

std::vector<fs::path> listTopLevel(const fs::path& folder) {
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        if (!it->path().filename().string().starts_with('.')) entries.push_back(it->path());
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

DownloadsScanEngine::DownloadsScanEngine(Dependencies deps)
    : m_deps(std::move(deps)), m_queue(m_deps.queues.make("downloads")) {}

DownloadsScanEngine::~DownloadsScanEngine() {
    *m_alive = false;
}

void DownloadsScanEngine::start() {
    // Watch first, so nothing written between the listing and the watch goes unseen.
    m_watch = m_deps.watcher.watchFolder(m_deps.directory, [this] { folderChanged(); });
    if (!m_watch) DebugLog::write("downloads: cannot open folder for events");
    m_queue->async([this] {
        const auto listed = listTopLevel(m_deps.directory);
        for (const fs::path& path : listed) m_state.known.insert(path.string());
        DebugLog::write([&] {
            return "downloads: watching " + m_deps.directory.string() + ", " + std::to_string(listed.size()) +
                   " existing items ignored";
        });
    });
    requestScan();
}

// A burst of events gives one scan, 0.3 s after the last of them.
void DownloadsScanEngine::folderChanged() {
    m_debounce = m_deps.scheduler.schedule(kDebounce, [this] {
        m_debounce.detach();  // it ran: nothing is pending any more
        requestScan();
    });
}

void DownloadsScanEngine::requestScan() {
    m_queue->async([this, alive = std::weak_ptr<bool>(m_alive)] {
        Outcome outcome = scan();
        m_deps.scheduler.post([this, alive, outcome = std::move(outcome)] {
            if (!alive.expired()) scanned(outcome);
        });
    });
}

void DownloadsScanEngine::scanned(const Outcome& outcome) {
    ++m_scans;
    // Writes into an open file raise no folder event, so only this timer moves a progress bar; it
    // runs while a marker exists and not a moment longer.
    if (outcome.active.empty()) {
        m_poll.cancel();
    } else if (!m_poll.isActive()) {
        m_poll = m_deps.scheduler.repeat(kPollInterval, [this] { requestScan(); });
    }
    if (outcome.settling) {
        m_followUp = m_deps.scheduler.schedule(kSettleLook, [this] {
            m_followUp.detach();
            requestScan();
        });
    }
    if (onUpdate) onUpdate(outcome.active, outcome.finished);
}

DownloadsScanEngine::Outcome DownloadsScanEngine::scan() {
    const auto listed = listTopLevel(m_deps.directory);
    std::set<std::string> listedNames;
    for (const fs::path& path : listed) listedNames.insert(path.string());
    std::set<std::string> goneNames;
    scanMarkers(listed, goneNames);
    // A file deleted while it settled is dropped, or its follow-up looks would never end.
    std::erase_if(m_state.settling, [&](const auto& entry) { return !listedNames.contains(entry.first); });
    std::set<std::string> added;
    scanNewFiles(listed, goneNames, added);
    Outcome outcome;
    settle(added, outcome.finished);
    outcome.settling = !m_state.settling.empty();

    // Forget names no longer listed, so a file that comes back later under one is new again.
    std::erase_if(m_state.known, [&](const std::string& path) {
        return !listedNames.contains(path) && !m_state.markers.contains(path);
    });
    remember(outcome.finished);

    for (const auto& [path, download] : m_state.markers) outcome.active.push_back(download);
    std::stable_sort(outcome.active.begin(), outcome.active.end(),
                     [](const auto& a, const auto& b) { return a.startedAt < b.startedAt; });
    return outcome;
}

void DownloadsScanEngine::scanMarkers(const std::vector<fs::path>& listed, std::set<std::string>& goneNames) {
    std::set<std::string> present;
    for (const fs::path& path : listed) {
        const std::string fileName = path.filename().string();
        const auto suffix = markerSuffix(fileName);
        if (!suffix) continue;
        const std::string key = path.string();
        present.insert(key);
        const std::string name = markerDisplayName(fileName, *suffix);
        const MarkerProgress progress = markerProgress(path);
        auto it = m_state.markers.find(key);
        if (it == m_state.markers.end()) {
            m_state.markers.emplace(
                key, InProgressDownload{key, name, progress.fraction(), progress.bytes, m_deps.clock.now()});
            m_state.known.insert(key);
            DebugLog::write([&] { return "downloads: started " + name; });
        } else {
            it->second.name = name;
            it->second.progress = progress.fraction();
            it->second.bytes = progress.bytes;
        }
    }
    for (auto it = m_state.markers.begin(); it != m_state.markers.end();) {
        if (present.contains(it->first)) {
            ++it;
            continue;
        }
        goneNames.insert(it->second.name);
        DebugLog::write([&] { return "downloads: marker gone for " + it->second.name; });
        it = m_state.markers.erase(it);
    }
}

void DownloadsScanEngine::scanNewFiles(const std::vector<fs::path>& listed,
                                       const std::set<std::string>& goneNames, std::set<std::string>& added) {
    for (const fs::path& path : listed) {
        const std::string key = path.string();
        if (markerSuffix(path.filename().string())) continue;
        // A browser that renames its marker over an older file of the same name leaves a known path.
        if (m_state.known.contains(key) && !goneNames.contains(path.filename().string())) continue;
        if (std::find(m_state.handled.begin(), m_state.handled.end(), key) != m_state.handled.end() ||
            m_state.settling.contains(key))
            continue;
        m_state.known.insert(key);
        std::error_code error;
        // Folders never count; unreadable entries count as not regular.
        if (!fs::is_regular_file(fs::symlink_status(path, error))) continue;
        const auto size = fs::file_size(path, error);
        m_state.settling[key] = Settling{error ? 0 : static_cast<std::int64_t>(size), 0};
        added.insert(key);
    }
}

void DownloadsScanEngine::settle(const std::set<std::string>& added, std::vector<fs::path>& finished) {
    for (auto it = m_state.settling.begin(); it != m_state.settling.end();) {
        if (added.contains(it->first)) {
            ++it;
            continue;
        }
        std::error_code error;
        const auto size = fs::file_size(it->first, error);
        // A file that vanished has no size: that counts as a change until a listing drops it.
        if (error || static_cast<std::int64_t>(size) != it->second.size) {
            it->second = Settling{error ? -1 : static_cast<std::int64_t>(size), 0};
            ++it;
            continue;
        }
        if (++it->second.stable >= 2) {
            finished.emplace_back(it->first);
            it = m_state.settling.erase(it);
            continue;
        }
        ++it;
    }
}

void DownloadsScanEngine::remember(const std::vector<fs::path>& finished) {
    for (const fs::path& path : finished) {
        const std::string key = path.string();
        if (std::find(m_state.handled.begin(), m_state.handled.end(), key) != m_state.handled.end()) continue;
        m_state.handled.push_back(key);
        if (m_state.handled.size() > kHandledLimit) m_state.handled.pop_front();
    }
}

}  // namespace vantrelle
