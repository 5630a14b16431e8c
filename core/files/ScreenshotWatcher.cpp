#include "files/ScreenshotWatcher.h"

#include "support/DebugLog.h"

namespace vantrelle {

ScreenshotWatcher::ScreenshotWatcher(Dependencies deps)
    : m_settings(deps.settings),
      m_shelf(deps.shelf),
      m_captureFolder(std::move(deps.captureFolder)),
      m_demo(deps.demoMode),
      m_engine(std::move(deps.engine)) {}

void ScreenshotWatcher::apply() {
    if (m_settings.addScreenshotsToShelf() && !m_demo) {
        if (m_started) return;
        m_started = true;
        m_engine.onCapture = [this](const std::filesystem::path& file) {
            if (!m_settings.addScreenshotsToShelf()) return;
            m_shelf.add({file});
            DebugLog::write([&] { return "screenshots: added " + file.filename().string(); });
        };
        m_engine.start(m_captureFolder());
        return;
    }
    if (!m_started) return;
    m_started = false;
    m_engine.stop();
}

}  // namespace vantrelle
