#include "files/DownloadsWatcher.h"

#include "support/DebugLog.h"

namespace vantrelle {

DownloadsWatcher::DownloadsWatcher(Dependencies deps)
    : m_settings(deps.settings),
      m_activities(deps.activities),
      m_shelf(deps.shelf),
      m_engine(std::move(deps.engine)) {}

void DownloadsWatcher::start() {
    if (m_started) return;
    m_started = true;
    m_engine.onUpdate = [this](const auto& active, const auto& finished) { publish(active, finished); };
    m_engine.start();
}

void DownloadsWatcher::publish(const std::vector<InProgressDownload>& active,
                               const std::vector<std::filesystem::path>& finished) {
    const bool activeChanged = active != m_active;
    if (activeChanged) m_active = active;
    if (m_active.empty()) {
        m_activities.set(std::nullopt, LiveActivityCenter::Source::downloads);
    } else {
        const InProgressDownload& first = m_active.front();
        m_activities.set(LiveActivity{LiveActivity::Download{first.name, first.progress}},
                         LiveActivityCenter::Source::downloads);
    }
    for (const std::filesystem::path& file : finished) {
        const std::string name = file.filename().string();
        DebugLog::write([&] { return "downloads: finished " + name; });
        m_recent.push_front(file);
        if (m_recent.size() > kRecentLimit) m_recent.pop_back();
        if (m_settings.addDownloadsToShelf()) m_shelf.add({file});
        m_activities.flash(LiveActivity{LiveActivity::Download{name, 1.0}}, kFinishedFlashSeconds);
    }
    if (activeChanged || !finished.empty()) changed.emit();
}

}  // namespace vantrelle
