#pragma once

#include <deque>
#include <filesystem>
#include <vector>

#include "activity/LiveActivityCenter.h"
#include "catalog/AppSettings.h"
#include "files/DownloadsScanEngine.h"
#include "files/ShelfStore.h"
#include "support/Signal.h"

namespace vantrelle {

// What is downloading into the Downloads folder and what just finished, for the notch and the
// shelf. Main thread only; the scanning is its engine's.
class DownloadsWatcher {
public:
    static constexpr std::size_t kRecentLimit = 10;
    static constexpr double kFinishedFlashSeconds = 4.0;

    struct Dependencies {
        DownloadsScanEngine::Dependencies engine;
        AppSettings& settings;
        LiveActivityCenter& activities;
        ShelfStore& shelf;
    };

    explicit DownloadsWatcher(Dependencies deps);

    // Idempotent; nothing stops it.
    void start();

    [[nodiscard]] const std::vector<InProgressDownload>& active() const { return m_active; }
    [[nodiscard]] const std::deque<std::filesystem::path>& recentlyFinished() const { return m_recent; }
    [[nodiscard]] const DownloadsScanEngine& engine() const { return m_engine; }
    [[nodiscard]] bool started() const { return m_started; }

    Signal<> changed;

private:
    void publish(const std::vector<InProgressDownload>& active,
                 const std::vector<std::filesystem::path>& finished);

    AppSettings& m_settings;
    LiveActivityCenter& m_activities;
    ShelfStore& m_shelf;
    std::vector<InProgressDownload> m_active;
    std::deque<std::filesystem::path> m_recent;
    bool m_started = false;
    DownloadsScanEngine m_engine;
};

}  // namespace vantrelle
