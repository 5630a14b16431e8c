#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string_view>
#include <vector>

#include "catalog/DashTile.h"
#include "catalog/NotchTab.h"
#include "catalog/QuickToggle.h"
#include "platform/DefaultsStore.h"
#include "platform/LoginItem.h"
#include "platform/Scheduler.h"
#include "support/NotificationCenter.h"
#include "support/Signal.h"

namespace vantrelle {

enum class SettingsTab { general, tools, shortcuts, dashboard, toggles, focus };
enum class Appearance { system, dark, light };

[[nodiscard]] std::string_view rawValue(SettingsTab tab);
[[nodiscard]] std::optional<SettingsTab> settingsTabFromRaw(std::string_view raw);
[[nodiscard]] std::string_view rawValue(Appearance appearance);
[[nodiscard]] std::optional<Appearance> appearanceFromRaw(std::string_view raw);

using TabSet = std::set<NotchTab>;

// The persisted settings. Every property loads from the defaults store, falling back to its default for
// an absent key or a value of another type, and every write stores at once. Nothing is clamped: ranges
// are the pickers' business. Main thread only.
class AppSettings {
public:
    AppSettings(DefaultsStore& defaults, NotificationCenter& notifications, LoginItem& loginItem,
                Scheduler& scheduler);
    AppSettings(const AppSettings&) = delete;
    AppSettings& operator=(const AppSettings&) = delete;

    [[nodiscard]] static AppSettings& shared();

    // Emits the property's name after each write.
    Signal<std::string_view> changed;

    // Runs on the main queue after addScreenshotsToShelf changes, outside the property write.
    std::function<void()> onScreenshotsToShelfChanged;

    [[nodiscard]] SettingsTab settingsTab() const { return m_settingsTab; }
    void setSettingsTab(SettingsTab tab);

    [[nodiscard]] double hoverDelay() const { return m_hoverDelay; }
    void setHoverDelay(double seconds);
    [[nodiscard]] bool simulateNotch() const { return m_simulateNotch; }
    void setSimulateNotch(bool on);
    // A hairline outline and faint glow around a simulated notch, so it can be found on a dark desktop.
    [[nodiscard]] bool notchOutline() const { return m_notchOutline; }
    void setNotchOutline(bool on);
    [[nodiscard]] bool hideInFullScreen() const { return m_hideInFullScreen; }
    void setHideInFullScreen(bool on);
    [[nodiscard]] bool quietDuringCalls() const { return m_quietDuringCalls; }
    void setQuietDuringCalls(bool on);
    [[nodiscard]] Appearance appearance() const { return m_appearance; }
    void setAppearance(Appearance appearance);
    [[nodiscard]] bool glassPanel() const { return m_glassPanel; }
    void setGlassPanel(bool on);
    [[nodiscard]] bool showDock() const { return m_showDock; }
    void setShowDock(bool on);
    [[nodiscard]] bool addDownloadsToShelf() const { return m_addDownloadsToShelf; }
    void setAddDownloadsToShelf(bool on);
    [[nodiscard]] bool addScreenshotsToShelf() const { return m_addScreenshotsToShelf; }
    void setAddScreenshotsToShelf(bool on);
    [[nodiscard]] bool meetingHeadsUp() const { return m_meetingHeadsUp; }
    void setMeetingHeadsUp(bool on);
    [[nodiscard]] bool wrappedReminders() const { return m_wrappedReminders; }
    void setWrappedReminders(bool on);
    [[nodiscard]] const std::vector<DashTile>& dashboardTiles() const { return m_dashboardTiles; }
    void setDashboardTiles(const std::vector<DashTile>& tiles);
    [[nodiscard]] std::int64_t meetingHeadsUpMinutes() const { return m_meetingHeadsUpMinutes; }
    void setMeetingHeadsUpMinutes(std::int64_t minutes);
    [[nodiscard]] std::int64_t aiBlockTokenBudget() const { return m_aiBlockTokenBudget; }
    void setAiBlockTokenBudget(std::int64_t tokens);
    [[nodiscard]] bool aiLiveActivity() const { return m_aiLiveActivity; }
    void setAiLiveActivity(bool on);
    [[nodiscard]] std::int64_t focusMinutes() const { return m_focusMinutes; }
    void setFocusMinutes(std::int64_t minutes);
    [[nodiscard]] std::int64_t breakMinutes() const { return m_breakMinutes; }
    void setBreakMinutes(std::int64_t minutes);
    [[nodiscard]] std::int64_t longBreakMinutes() const { return m_longBreakMinutes; }
    void setLongBreakMinutes(std::int64_t minutes);
    [[nodiscard]] std::int64_t quickTimerMinutes() const { return m_quickTimerMinutes; }
    void setQuickTimerMinutes(std::int64_t minutes);
    [[nodiscard]] std::int64_t customTimerMinutes() const { return m_customTimerMinutes; }
    void setCustomTimerMinutes(std::int64_t minutes);
    [[nodiscard]] std::int64_t workdayStartMinutes() const { return m_workdayStartMinutes; }
    void setWorkdayStartMinutes(std::int64_t minutes);
    [[nodiscard]] std::int64_t workdayEndMinutes() const { return m_workdayEndMinutes; }
    void setWorkdayEndMinutes(std::int64_t minutes);
    [[nodiscard]] bool playSounds() const { return m_playSounds; }
    void setPlaySounds(bool on);
    [[nodiscard]] bool sessionNotifications() const { return m_sessionNotifications; }
    void setSessionNotifications(bool on);
    // Read from the platform each time: a failed registration shows its true state at the next read.
    [[nodiscard]] bool launchAtLogin() const { return m_loginItem.isEnabled(); }
    void setLaunchAtLogin(bool on);
    [[nodiscard]] const std::vector<QuickToggle>& visibleToggles() const { return m_visibleToggles; }
    void setVisibleToggles(std::vector<QuickToggle> toggles);

    [[nodiscard]] const TabSet& enabledTabs() const { return m_enabledTabs; }
    [[nodiscard]] bool isEnabled(NotchTab tab) const { return m_enabledTabs.contains(tab); }
    void setEnabledTabs(TabSet tabs);
    // The enabled tools in dock order.
    [[nodiscard]] std::vector<NotchTab> orderedEnabledTabs() const;
    // Turning the Dashboard off, or the last enabled tool, is refused.
    void setEnabled(NotchTab tab, bool on);
    // Tools that every launch turns back on, whatever was stored.
    [[nodiscard]] static bool isRestoredAtLaunch(NotchTab tab);

private:
    void loadEnabledTabs();
    void storeEnabledTabs();
    void stored(std::string_view property);
    // Assigns, stores under `key` and announces the property (named like its key unless given).
    template <typename T>
    void write(T& field, T value, std::string_view key, std::string_view property = {});

    DefaultsStore& m_defaults;
    NotificationCenter& m_notifications;
    LoginItem& m_loginItem;
    Scheduler& m_scheduler;

    SettingsTab m_settingsTab = SettingsTab::general;
    double m_hoverDelay = 0.2;
    bool m_simulateNotch = true;
    bool m_notchOutline = true;
    bool m_hideInFullScreen = false;
    bool m_quietDuringCalls = true;
    Appearance m_appearance = Appearance::system;
    bool m_glassPanel = false;
    bool m_showDock = true;
    bool m_addDownloadsToShelf = true;
    bool m_addScreenshotsToShelf = true;
    bool m_meetingHeadsUp = true;
    bool m_wrappedReminders = true;
    std::vector<DashTile> m_dashboardTiles;
    std::int64_t m_meetingHeadsUpMinutes = 5;
    std::int64_t m_aiBlockTokenBudget = 0;
    bool m_aiLiveActivity = true;
    std::int64_t m_focusMinutes = 25;
    std::int64_t m_breakMinutes = 5;
    std::int64_t m_longBreakMinutes = 15;
    std::int64_t m_quickTimerMinutes = 5;
    std::int64_t m_customTimerMinutes = 5;
    std::int64_t m_workdayStartMinutes = 540;
    std::int64_t m_workdayEndMinutes = 1080;
    bool m_playSounds = true;
    bool m_sessionNotifications = true;
    std::vector<QuickToggle> m_visibleToggles;
    TabSet m_enabledTabs;
};

}  // namespace vantrelle
