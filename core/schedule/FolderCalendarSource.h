#pragma once

#include <map>
#include <memory>

#include "platform/FileWatcher.h"
#include "platform/Scheduler.h"
#include "schedule/CalendarLibrary.h"
#include "schedule/CalendarSource.h"

namespace vantrelle {

// The calendars in the user's folders, watched with inotify so an edit (or a sync) shows without
// waiting for the next timed refresh. A burst of file events wakes the observer once, shortly after.
class FolderCalendarSource final : public CalendarSource {
public:
    static constexpr double kSettleDelay = 0.25;

    FolderCalendarSource(CalendarLibrary& library, FileWatcher& watcher, Scheduler& scheduler);

    [[nodiscard]] Access access() override;
    [[nodiscard]] std::vector<CalendarEvent> events(Date from, Date to) override;
    void observeChanges(std::function<void()> onChange) override;
    void requestAccess(std::function<void()> done) override;

    // New settings: the folders and addresses replace the old ones, the folders are read and watched
    // again at once. The observer isn't called: whoever changed the settings refreshes.
    void reconfigure(std::vector<std::filesystem::path> folders, const std::vector<std::string>& addresses);

    // Shows a folder chooser and calls back with the folder picked, or nothing. Set by the shell.
    std::function<void(std::function<void(std::filesystem::path)>)> chooseFolder;
    // Called with the new folder list after the user added one, so the settings can keep it.
    std::function<void(const std::vector<std::filesystem::path>&)> onFoldersChanged;

    [[nodiscard]] std::size_t watchCount() const { return m_watches.size(); }

private:
    void rewatch();
    void changed();

    CalendarLibrary& m_library;
    FileWatcher& m_watcher;
    Scheduler& m_scheduler;
    std::function<void()> m_onChange;
    std::map<std::filesystem::path, std::unique_ptr<FileWatch>> m_watches;
    WorkItem m_settle;
};

}  // namespace vantrelle
