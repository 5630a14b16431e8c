#include "catalog/AppSettings.h"

#include <algorithm>

#include "support/RawEnum.h"
#include "support/SharedInstance.h"

namespace vantrelle {

namespace {

constexpr std::array<std::string_view, 6> kSettingsTabNames{"general",   "tools",   "shortcuts",
                                                            "dashboard", "toggles", "focus"};
constexpr std::array<std::string_view, 3> kAppearanceNames{"system", "dark", "light"};

// Tools that an old stored list can never turn off.
constexpr std::array<NotchTab, 4> kAlwaysEnabled{NotchTab::dashboard, NotchTab::support, NotchTab::aiUsage,
                                                 NotchTab::calc};

// Tools that shipped after users had saved their lists: each shows up once, then the user decides.
constexpr std::array<std::pair<std::string_view, NotchTab>, 3> kIntroducedLater{{
    {"introduced.game", NotchTab::game},
    {"introduced.menuBar", NotchTab::menuBar},
    {"introduced.devServers", NotchTab::devServers},
}};

TabSet allTabs() {
    return {allNotchTabs().begin(), allNotchTabs().end()};
}

template <typename E, typename FromRaw>
std::vector<E> knownCases(const std::vector<std::string>& raws, FromRaw fromRaw) {
    std::vector<E> cases;
    for (const auto& raw : raws) {
        if (auto value = fromRaw(raw)) cases.push_back(*value);
    }
    return cases;
}

template <typename E>
std::vector<std::string> rawStrings(const std::vector<E>& cases) {
    std::vector<std::string> raws;
    raws.reserve(cases.size());
    for (E value : cases) raws.emplace_back(rawValue(value));
    return raws;
}

}  // namespace

std::string_view rawValue(SettingsTab tab) {
    return enumToRaw(kSettingsTabNames, tab);
}
std::optional<SettingsTab> settingsTabFromRaw(std::string_view raw) {
    return enumFromRaw<SettingsTab>(kSettingsTabNames, raw);
}
std::string_view rawValue(Appearance appearance) {
    return enumToRaw(kAppearanceNames, appearance);
}
std::optional<Appearance> appearanceFromRaw(std::string_view raw) {
    return enumFromRaw<Appearance>(kAppearanceNames, raw);
}

AppSettings& AppSettings::shared() {
    return SharedInstance<AppSettings>::get();
}

AppSettings::AppSettings(DefaultsStore& defaults, NotificationCenter& notifications, LoginItem& loginItem,
                         Scheduler& scheduler)
    : m_defaults(defaults), m_notifications(notifications), m_loginItem(loginItem), m_scheduler(scheduler) {
    auto& d = m_defaults;
    m_hoverDelay = d.real("hoverDelay").value_or(m_hoverDelay);
    m_simulateNotch = d.boolean("simulateNotch").value_or(m_simulateNotch);
    m_notchOutline = d.boolean("notchOutline").value_or(m_notchOutline);
    m_hideInFullScreen = d.boolean("hideInFullScreen").value_or(m_hideInFullScreen);
    m_quietDuringCalls = d.boolean("quietDuringCalls").value_or(m_quietDuringCalls);
    if (auto raw = d.string("appearance"))
        m_appearance = appearanceFromRaw(*raw).value_or(Appearance::system);
    m_glassPanel = d.boolean("glassPanel").value_or(m_glassPanel);
    m_showDock = d.boolean("showDock").value_or(m_showDock);
    m_addDownloadsToShelf = d.boolean("addDownloadsToShelf").value_or(m_addDownloadsToShelf);
    m_addScreenshotsToShelf = d.boolean("addScreenshotsToShelf").value_or(m_addScreenshotsToShelf);
    m_meetingHeadsUp = d.boolean("meetingHeadsUp").value_or(m_meetingHeadsUp);
    m_wrappedReminders = d.boolean("wrappedReminders").value_or(m_wrappedReminders);
    m_dashboardTiles = normalizedDashTiles(knownCases<DashTile>(
        d.stringArray("dashboardTiles").value_or(std::vector<std::string>{}), dashTileFromRaw));
    m_meetingHeadsUpMinutes = d.integer("meetingHeadsUpMinutes").value_or(m_meetingHeadsUpMinutes);
    m_aiBlockTokenBudget = d.integer("aiBlockTokenBudget").value_or(m_aiBlockTokenBudget);
    m_aiLiveActivity = d.boolean("aiLiveActivity").value_or(m_aiLiveActivity);
    m_focusMinutes = d.integer("focusMinutes").value_or(m_focusMinutes);
    m_breakMinutes = d.integer("breakMinutes").value_or(m_breakMinutes);
    m_longBreakMinutes = d.integer("longBreakMinutes").value_or(m_longBreakMinutes);
    m_quickTimerMinutes = d.integer("quickTimerMinutes").value_or(m_quickTimerMinutes);
    m_customTimerMinutes = d.integer("customTimerMinutes").value_or(m_customTimerMinutes);
    m_workdayStartMinutes = d.integer("workdayStart").value_or(m_workdayStartMinutes);
    m_workdayEndMinutes = d.integer("workdayEnd").value_or(m_workdayEndMinutes);
    m_playSounds = d.boolean("playSounds").value_or(m_playSounds);
    m_sessionNotifications = d.boolean("sessionNotifications").value_or(m_sessionNotifications);
    m_visibleToggles = knownCases<QuickToggle>(
        d.stringArray("visibleToggles").value_or(std::vector<std::string>{}), quickToggleFromRaw);
    if (m_visibleToggles.empty()) m_visibleToggles = defaultVisibleToggles();
    loadEnabledTabs();
}

void AppSettings::loadEnabledTabs() {
    auto raws = m_defaults.stringArray("enabledTabs");
    if (!raws) {
        m_enabledTabs = allTabs();
        return;
    }
    m_enabledTabs.clear();
    for (const auto& raw : *raws) {
        if (auto tab = notchTabFromRaw(raw)) m_enabledTabs.insert(*tab);
    }
    m_enabledTabs.insert(kAlwaysEnabled.begin(), kAlwaysEnabled.end());
    for (const auto& [key, tab] : kIntroducedLater) {
        if (m_defaults.boolean(key).value_or(false)) continue;
        m_enabledTabs.insert(tab);
        storeEnabledTabs();
        m_defaults.set(key, true);
    }
    if (m_enabledTabs.empty()) m_enabledTabs = allTabs();
}

void AppSettings::storeEnabledTabs() {
    std::vector<std::string> raws;
    for (NotchTab tab : m_enabledTabs) raws.emplace_back(rawValue(tab));
    std::sort(raws.begin(), raws.end());
    m_defaults.set("enabledTabs", std::move(raws));
}

void AppSettings::stored(std::string_view property) {
    changed.emit(property);
}

template <typename T>
void AppSettings::write(T& field, T value, std::string_view key, std::string_view property) {
    field = value;
    m_defaults.set(key, value);
    stored(property.empty() ? key : property);
}

void AppSettings::setSettingsTab(SettingsTab tab) {
    m_settingsTab = tab;
    stored("settingsTab");
}

void AppSettings::setHoverDelay(double seconds) {
    write(m_hoverDelay, seconds, "hoverDelay");
}

void AppSettings::setSimulateNotch(bool on) {
    write(m_simulateNotch, on, "simulateNotch");
    m_notifications.post(Notifications::notchGeometrySettingsChanged);
}

void AppSettings::setNotchOutline(bool on) {
    write(m_notchOutline, on, "notchOutline");
}

void AppSettings::setHideInFullScreen(bool on) {
    write(m_hideInFullScreen, on, "hideInFullScreen");
    m_notifications.post(Notifications::notchGeometrySettingsChanged);
}

void AppSettings::setQuietDuringCalls(bool on) {
    write(m_quietDuringCalls, on, "quietDuringCalls");
}

void AppSettings::setAppearance(Appearance appearance) {
    m_appearance = appearance;
    m_defaults.set("appearance", std::string(rawValue(appearance)));
    stored("appearance");
    m_notifications.post(Notifications::notchAppearanceChanged);
}

void AppSettings::setGlassPanel(bool on) {
    write(m_glassPanel, on, "glassPanel");
}

void AppSettings::setShowDock(bool on) {
    write(m_showDock, on, "showDock");
}

void AppSettings::setAddDownloadsToShelf(bool on) {
    write(m_addDownloadsToShelf, on, "addDownloadsToShelf");
}

void AppSettings::setAddScreenshotsToShelf(bool on) {
    write(m_addScreenshotsToShelf, on, "addScreenshotsToShelf");
    // The watcher reads this setting while it applies; run it after the write has finished.
    m_scheduler.post([this] {
        if (onScreenshotsToShelfChanged) onScreenshotsToShelfChanged();
    });
}

void AppSettings::setMeetingHeadsUp(bool on) {
    write(m_meetingHeadsUp, on, "meetingHeadsUp");
}

void AppSettings::setWrappedReminders(bool on) {
    write(m_wrappedReminders, on, "wrappedReminders");
}

void AppSettings::setDashboardTiles(const std::vector<DashTile>& tiles) {
    m_dashboardTiles = normalizedDashTiles(tiles);
    m_defaults.set("dashboardTiles", rawStrings(m_dashboardTiles));
    stored("dashboardTiles");
}

void AppSettings::setMeetingHeadsUpMinutes(std::int64_t minutes) {
    write(m_meetingHeadsUpMinutes, minutes, "meetingHeadsUpMinutes");
}

void AppSettings::setAiBlockTokenBudget(std::int64_t tokens) {
    write(m_aiBlockTokenBudget, tokens, "aiBlockTokenBudget");
}

void AppSettings::setAiLiveActivity(bool on) {
    write(m_aiLiveActivity, on, "aiLiveActivity");
}

void AppSettings::setFocusMinutes(std::int64_t minutes) {
    write(m_focusMinutes, minutes, "focusMinutes");
}

void AppSettings::setBreakMinutes(std::int64_t minutes) {
    write(m_breakMinutes, minutes, "breakMinutes");
}

void AppSettings::setLongBreakMinutes(std::int64_t minutes) {
    write(m_longBreakMinutes, minutes, "longBreakMinutes");
}

void AppSettings::setQuickTimerMinutes(std::int64_t minutes) {
    write(m_quickTimerMinutes, minutes, "quickTimerMinutes");
}

void AppSettings::setCustomTimerMinutes(std::int64_t minutes) {
    write(m_customTimerMinutes, minutes, "customTimerMinutes");
}

void AppSettings::setWorkdayStartMinutes(std::int64_t minutes) {
    write(m_workdayStartMinutes, minutes, "workdayStart", "workdayStartMinutes");
}

void AppSettings::setWorkdayEndMinutes(std::int64_t minutes) {
    write(m_workdayEndMinutes, minutes, "workdayEnd", "workdayEndMinutes");
}

void AppSettings::setPlaySounds(bool on) {
    write(m_playSounds, on, "playSounds");
}

void AppSettings::setSessionNotifications(bool on) {
    write(m_sessionNotifications, on, "sessionNotifications");
}

void AppSettings::setLaunchAtLogin(bool on) {
    // A failure is swallowed; the getter reads the platform's true state.
    m_loginItem.setEnabled(on);
    stored("launchAtLogin");
}

void AppSettings::setVisibleToggles(std::vector<QuickToggle> toggles) {
    m_visibleToggles = std::move(toggles);
    m_defaults.set("visibleToggles", rawStrings(m_visibleToggles));
    stored("visibleToggles");
}

void AppSettings::setEnabledTabs(TabSet tabs) {
    m_enabledTabs = std::move(tabs);
    storeEnabledTabs();
    stored("enabledTabs");
}

std::vector<NotchTab> AppSettings::orderedEnabledTabs() const {
    std::vector<NotchTab> ordered;
    for (NotchTab tab : allNotchTabs()) {
        if (m_enabledTabs.contains(tab)) ordered.push_back(tab);
    }
    return ordered;
}

bool AppSettings::isRestoredAtLaunch(NotchTab tab) {
    return std::find(kAlwaysEnabled.begin(), kAlwaysEnabled.end(), tab) != kAlwaysEnabled.end();
}

void AppSettings::setEnabled(NotchTab tab, bool on) {
    TabSet tabs = m_enabledTabs;
    if (on) {
        tabs.insert(tab);
    } else {
        if (tab == NotchTab::dashboard || tabs.size() <= 1) return;
        tabs.erase(tab);
    }
    setEnabledTabs(std::move(tabs));
}

}  // namespace vantrelle
