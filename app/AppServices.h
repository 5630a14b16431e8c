#pragma once

#include <functional>
#include <optional>

#include "overlay/OverlayPorts.h"
#include "support/DebugLog.h"

namespace vantrelle {

// The rest of the program as the overlay reaches it. Services join here as they are built.
class AppServices final : public OverlayServices {
public:
    void startBackgroundServices() override {
        // Each service logs its own start; this line marks where the sequence begins.
        DebugLog::write("launch: starting background services");
        for (const auto& [name, start] : m_services) {
            DebugLog::write([&] { return "launch: start " + name; });
            start();
        }
    }
    void terminate() override {
        if (onTerminate) onTerminate();
    }
    void addToShelf(const std::vector<std::string>& fileUrls) override {
        if (onAddToShelf) onAddToShelf(fileUrls);
    }
    void stopCamera() override {
        if (onStopCamera) onStopCamera();
    }
    void refreshSchedule() override {
        if (onRefreshSchedule) onRefreshSchedule();
    }
    void installShortcuts(std::function<void(ShortcutTarget)> onFire) override {
        if (onInstallShortcuts) onInstallShortcuts(std::move(onFire));
    }
    [[nodiscard]] bool isGamePlaying() const override { return onIsGamePlaying && onIsGamePlaying(); }
    [[nodiscard]] std::optional<Date> menuBarIgnoreClicksUntil() const override {
        return onMenuBarIgnoreClicksUntil ? onMenuBarIgnoreClicksUntil() : std::nullopt;
    }

    // Registered in start-up order.
    void addService(std::string name, std::function<void()> start) {
        m_services.emplace_back(std::move(name), std::move(start));
    }

    std::function<void()> onTerminate;
    std::function<void(const std::vector<std::string>&)> onAddToShelf;
    std::function<void()> onStopCamera;
    // The panel opened: the calendar and reminders look again at once.
    std::function<void()> onRefreshSchedule;
    std::function<void(std::function<void(ShortcutTarget)>)> onInstallShortcuts;
    std::function<bool()> onIsGamePlaying;
    std::function<std::optional<Date>()> onMenuBarIgnoreClicksUntil;

private:
    std::vector<std::pair<std::string, std::function<void()>>> m_services;
};

}  // namespace vantrelle
