#pragma once

#include <filesystem>
#include <functional>

#include "catalog/AppSettings.h"
#include "files/ScreenshotScanEngine.h"
#include "files/ShelfStore.h"

namespace vantrelle {

// Puts each new screenshot on the shelf, while the setting is on and outside demo mode. Main thread.
class ScreenshotWatcher {
public:
    struct Dependencies {
        ScreenshotScanEngine::Dependencies engine;
        AppSettings& settings;
        ShelfStore& shelf;
        // The capture folder, looked up at each start.
        std::function<std::filesystem::path()> captureFolder;
        bool demoMode = false;
    };

    explicit ScreenshotWatcher(Dependencies deps);

    // At start-up and after each change of the setting: starts or stops the engine to match.
    void apply();

    [[nodiscard]] bool started() const { return m_started; }
    [[nodiscard]] const ScreenshotScanEngine& engine() const { return m_engine; }

private:
    AppSettings& m_settings;
    ShelfStore& m_shelf;
    std::function<std::filesystem::path()> m_captureFolder;
    bool m_demo;
    bool m_started = false;
    ScreenshotScanEngine m_engine;
};

}  // namespace vantrelle
