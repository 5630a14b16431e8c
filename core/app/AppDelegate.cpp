#include "app/AppDelegate.h"

#include <fmt/format.h>

#include "support/DebugLog.h"

namespace vantrelle {

std::string_view describe(Permission permission) {
    switch (permission) {
        case Permission::undecided:
            return "not asked yet";
        case Permission::denied:
            return "denied";
        case Permission::granted:
            return "granted";
        case Permission::notRequired:
            return "no permission needed";
        case Permission::noDevice:
            return "no device";
    }
    return "unknown";
}

void AppDelegate::applicationDidFinishLaunching() {
    if (m_d.setAccessoryPolicy) m_d.setAccessoryPolicy();
    m_overlay = m_d.makeOverlay();
    m_overlay->start();
    if (m_d.registerNotificationCategories) m_d.registerNotificationCategories();
    const PermissionStatus p = m_d.permissions ? m_d.permissions() : PermissionStatus{};
    DebugLog::write([&] {
        return fmt::format("permissions: calendar={}, reminders={}, camera={}", describe(p.calendar),
                           describe(p.reminders), describe(p.camera));
    });
    m_d.hooks.evaluate(m_d.environment, m_d.scheduler);
}

void registerShellHooks(LaunchHooks& hooks, const AppDelegate& delegate, AppSettings& settings,
                        const Environment& environment, std::function<void()> showSettings) {
    hooks.add({LaunchHookSlot::openSettings, "VANTRELLE_OPEN_SETTINGS", LaunchHook::isSet, 1.5,
               [&settings, showSettings = std::move(showSettings)](const std::string& value) {
                   settings.setSettingsTab(settingsTabFromRaw(value).value_or(SettingsTab::general));
                   if (showSettings) showSettings();
               }});
    hooks.add({LaunchHookSlot::startExpanded, "VANTRELLE_START_EXPANDED", LaunchHook::isOne, 0.6,
               [&delegate, &environment](const std::string&) {
                   NotchOverlayController* overlay = delegate.overlay();
                   if (!overlay) return;
                   // An unknown tab opens on whatever tool is showing.
                   if (auto raw = environment.get("VANTRELLE_START_TAB")) {
                       if (auto tab = notchTabFromRaw(*raw)) overlay->state().setTab(*tab);
                   }
                   overlay->setExpanded(true, "unspecified");
               }});
}

}  // namespace vantrelle
