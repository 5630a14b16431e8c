#include "schedule/FolderCalendarSource.h"

#include <system_error>

#include "support/DebugLog.h"

namespace vantrelle {

namespace fs = std::filesystem;

FolderCalendarSource::FolderCalendarSource(CalendarLibrary& library, FileWatcher& watcher,
                                           Scheduler& scheduler)
    : m_library(library), m_watcher(watcher), m_scheduler(scheduler) {}

CalendarSource::Access FolderCalendarSource::access() {
    m_library.refresh();
    if (m_onChange) rewatch();
    return m_library.hasSources() ? Access::fullAccess : Access::notDetermined;
}

std::vector<CalendarEvent> FolderCalendarSource::events(Date from, Date to) {
    return m_library.events(from, to);
}

void FolderCalendarSource::observeChanges(std::function<void()> onChange) {
    m_onChange = std::move(onChange);
    rewatch();
}

void FolderCalendarSource::requestAccess(std::function<void()> done) {
    if (!chooseFolder) {
        done();
        return;
    }
    chooseFolder([this, done = std::move(done)](const fs::path& folder) {
        if (!folder.empty()) {
            auto folders = m_library.folders();
            if (std::find(folders.begin(), folders.end(), folder) == folders.end()) folders.push_back(folder);
            m_library.setFolders(folders);
            DebugLog::write([&] { return "calendar: added folder " + folder.string(); });
            if (onFoldersChanged) onFoldersChanged(folders);
        }
        done();
    });
}

void FolderCalendarSource::reconfigure(std::vector<fs::path> folders,
                                       const std::vector<std::string>& addresses) {
    m_library.setFolders(std::move(folders));
    m_library.setUserAddresses(addresses);
    m_library.refresh();
    if (m_onChange) rewatch();
}

// The roots and the folders below them that hold calendars (a vdir's items live one level down).
void FolderCalendarSource::rewatch() {
    std::map<fs::path, std::unique_ptr<FileWatch>> next;
    auto keep = [&](const fs::path& folder) {
        if (next.contains(folder)) return;
        auto existing = m_watches.find(folder);
        if (existing != m_watches.end()) {
            next.emplace(folder, std::move(existing->second));
        } else if (auto watch = m_watcher.watchFolder(folder, [this] { changed(); })) {
            next.emplace(folder, std::move(watch));
        }
    };
    for (const auto& root : m_library.folders()) {
        std::error_code error;
        if (!fs::is_directory(root, error)) continue;
        keep(root);
        for (fs::directory_iterator it(root, fs::directory_options::skip_permission_denied, error);
             !error && it != fs::directory_iterator(); it.increment(error)) {
            std::error_code typeError;
            if (it->is_directory(typeError)) keep(it->path());
        }
    }
    m_watches = std::move(next);
}

void FolderCalendarSource::changed() {
    if (!m_onChange) return;
    m_settle = m_scheduler.schedule(kSettleDelay, [this] {
        if (m_onChange) m_onChange();
    });
}

}  // namespace vantrelle
