#include "SettingsViewModel.h"

#include <QPointer>
#include <algorithm>
#include <array>
#include <limits>

#include "ShellEngine.h"
#include "ShellModel.h"
#include "ShellTheme.h"
#include "preferences/DashboardArrangement.h"
#include "preferences/ToggleChoice.h"
#include "preferences/ToolSwitch.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

QString text(std::string_view s) {
    return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
}

constexpr std::array<SettingsTab, 6> kPages{SettingsTab::general,   SettingsTab::tools,
                                            SettingsTab::shortcuts, SettingsTab::dashboard,
                                            SettingsTab::toggles,   SettingsTab::focus};
constexpr std::array<const char*, 6> kPageTitles{"General",   "Tools",   "Shortcuts",
                                                 "Dashboard", "Toggles", "Focus"};

ChoiceListModel::Row tileRow(DashTile tile) {
    const auto& i = info(tile);
    return {text(i.raw), text(i.title), ShellModel::glyph(std::string(i.icon)), text(i.subtitle), {}, true};
}

// A log line per change made in the window: scripted runs wait for it.
void logChange(std::string_view property) {
    DebugLog::write([&] { return "settings: " + std::string(property) + " changed"; });
}

}  // namespace

SettingsViewModel::SettingsViewModel(AppSettings& settings) : m_settings(settings) {
    m_connection = m_settings.changed.connect([this](std::string_view) {
        refreshLists();
        Q_EMIT changed();
    });
    std::vector<ChoiceListModel::Row> all;
    for (std::size_t i = 0; i < kDashTileCount; ++i) all.push_back(tileRow(static_cast<DashTile>(i)));
    m_allTiles.setRows(std::move(all));
    refreshLists();
}

void SettingsViewModel::attachStatusLine(ClaudeStatusLineSwitch* statusLine) {
    m_statusLine = statusLine;
    m_statusLineChanged =
        statusLine ? statusLine->changed.connect([this] { Q_EMIT statusLineChanged(); }) : Connection();
    if (statusLine) statusLine->refresh();
    Q_EMIT statusLineChanged();
}

QString SettingsViewModel::statusLineNote() const {
    return m_statusLine ? QString::fromStdString(m_statusLine->note()) : QString();
}

void SettingsViewModel::setStatusLineInstalled(bool installed) {
    if (m_statusLine) m_statusLine->set(installed);
}

SettingsViewModel* SettingsViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::settings);
}

int SettingsViewModel::narrow(std::int64_t value) {
    return static_cast<int>(
        std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

QString SettingsViewModel::page() const {
    return text(rawValue(m_settings.settingsTab()));
}

void SettingsViewModel::setPage(const QString& raw) {
    m_settings.setSettingsTab(settingsTabFromRaw(raw.toStdString()).value_or(SettingsTab::general));
}

QStringList SettingsViewModel::pages() {
    QStringList raws;
    for (SettingsTab tab : kPages) raws << text(rawValue(tab));
    return raws;
}

QStringList SettingsViewModel::pageTitles() {
    QStringList titles;
    for (const char* title : kPageTitles) titles << QString::fromUtf8(title);
    return titles;
}

QStringList SettingsViewModel::appearances() {
    return {QStringLiteral("Follow the system"), QStringLiteral("Dark"), QStringLiteral("Light")};
}

#define VANTRELLE_WRITE(Name, Type, Store)     \
    void SettingsViewModel::Name(Type value) { \
        m_settings.Name(Store);                \
        logChange(#Name);                      \
    }
VANTRELLE_WRITE(setHoverDelay, double, std::max(0.0, value))
VANTRELLE_WRITE(setSimulateNotch, bool, value)
VANTRELLE_WRITE(setNotchOutline, bool, value)
VANTRELLE_WRITE(setHideInFullScreen, bool, value)
VANTRELLE_WRITE(setQuietDuringCalls, bool, value)
VANTRELLE_WRITE(setGlassPanel, bool, value)
VANTRELLE_WRITE(setShowDock, bool, value)
VANTRELLE_WRITE(setAddDownloadsToShelf, bool, value)
VANTRELLE_WRITE(setAddScreenshotsToShelf, bool, value)
VANTRELLE_WRITE(setMeetingHeadsUp, bool, value)
VANTRELLE_WRITE(setMeetingHeadsUpMinutes, int, value)
VANTRELLE_WRITE(setWrappedReminders, bool, value)
VANTRELLE_WRITE(setAiBlockTokenBudget, double, static_cast<std::int64_t>(std::max(0.0, value)))
VANTRELLE_WRITE(setAiLiveActivity, bool, value)
VANTRELLE_WRITE(setFocusMinutes, int, value)
VANTRELLE_WRITE(setBreakMinutes, int, value)
VANTRELLE_WRITE(setLongBreakMinutes, int, value)
VANTRELLE_WRITE(setQuickTimerMinutes, int, value)
VANTRELLE_WRITE(setCustomTimerMinutes, int, value)
VANTRELLE_WRITE(setWorkdayStartMinutes, int, value)
VANTRELLE_WRITE(setWorkdayEndMinutes, int, value)
VANTRELLE_WRITE(setPlaySounds, bool, value)
VANTRELLE_WRITE(setSessionNotifications, bool, value)
VANTRELLE_WRITE(setLaunchAtLogin, bool, value)
#undef VANTRELLE_WRITE

void SettingsViewModel::setAppearance(int index) {
    if (index < 0 || index > static_cast<int>(Appearance::light)) return;
    m_settings.setAppearance(static_cast<Appearance>(index));
    logChange("setAppearance");
}

void SettingsViewModel::setToolEnabled(const QString& raw, bool on) {
    const auto tab = notchTabFromRaw(raw.toStdString());
    if (!tab) return;
    const ToolSwitchOutcome outcome = switchTool(m_settings, *tab, on);
    logChange("setEnabled");
    setNotes(QString::fromStdString(outcome.note), {});
    // A refused change leaves the store untouched, so the switch the user flipped must flip back.
    if (!outcome.applied) {
        refreshLists();
        Q_EMIT changed();
    }
}

void SettingsViewModel::moveTile(int from, int to) {
    if (from < 0 || to < 0) return;
    m_settings.setDashboardTiles(movedDashTile(m_settings.dashboardTiles(), static_cast<std::size_t>(from),
                                               static_cast<std::size_t>(to)));
    logChange("setDashboardTiles");
}

void SettingsViewModel::placeTile(int slot, const QString& raw) {
    const auto tile = dashTileFromRaw(raw.toStdString());
    if (slot < 0 || !tile) return;
    m_settings.setDashboardTiles(
        placedDashTile(m_settings.dashboardTiles(), static_cast<std::size_t>(slot), *tile));
    logChange("setDashboardTiles");
}

void SettingsViewModel::setToggleShown(const QString& raw, bool shown) {
    const auto toggle = quickToggleFromRaw(raw.toStdString());
    if (!toggle) return;
    if (auto next = withToggleShown(m_settings.visibleToggles(), *toggle, shown)) {
        m_settings.setVisibleToggles(std::move(*next));
        logChange("setVisibleToggles");
        setNotes({}, {});
        return;
    }
    setNotes({}, QStringLiteral("At least one toggle stays on the Dashboard."));
    refreshLists();
    Q_EMIT changed();
}

QString SettingsViewModel::clockText(int minutesAfterMidnight) {
    const int minutes = std::clamp(minutesAfterMidnight, 0, 24 * 60);
    return QStringLiteral("%1:%2").arg(minutes / 60).arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

void SettingsViewModel::setNotes(QString tool, QString toggle) {
    if (tool == m_toolNote && toggle == m_toggleNote) return;
    m_toolNote = std::move(tool);
    m_toggleNote = std::move(toggle);
    Q_EMIT noteChanged();
}

void SettingsViewModel::attachCalendars(CalendarPreferences& calendars, FolderChooser chooseFolder) {
    m_calendars = &calendars;
    m_chooseFolder = std::move(chooseFolder);
    m_calendarConnection = calendars.changed.connect([this] { refreshCalendars(); });
    refreshCalendars();
}

QString SettingsViewModel::calendarAddresses() const {
    return m_calendars ? QString::fromStdString(m_calendars->addressesText()) : QString();
}

void SettingsViewModel::setCalendarAddresses(const QString& text) {
    if (!m_calendars) return;
    m_calendars->setAddresses(text.toStdString());
    logChange("calendarUserAddresses");
    // A text that tidies to the same list announced nothing: the field still shows the tidy form.
    Q_EMIT calendarsChanged();
}

void SettingsViewModel::addCalendarFolder() {
    if (!m_calendars || !m_chooseFolder) return;
    m_chooseFolder([self = QPointer<SettingsViewModel>(this)](const std::filesystem::path& folder) {
        if (!self || folder.empty()) return;
        if (self->m_calendars->addFolder(folder)) logChange("calendarFolders");
    });
}

void SettingsViewModel::removeCalendarFolder(const QString& path) {
    if (m_calendars && m_calendars->removeFolder(std::filesystem::path(path.toStdString())))
        logChange("calendarFolders");
}

void SettingsViewModel::refreshCalendars() {
    std::vector<CalendarFolderListModel::Row> rows;
    for (const auto& folder : m_calendars->folders())
        rows.push_back({QString::fromStdString(folder.path.string()), folder.added, folder.found});
    m_calendarFolders.setRows(std::move(rows));
    Q_EMIT calendarsChanged();
}

void SettingsViewModel::refreshLists() {
    std::vector<ChoiceListModel::Row> tools;
    for (NotchTab tab : allNotchTabs()) {
        const auto& i = info(tab);
        tools.push_back({text(i.raw), text(i.title), ShellModel::glyph(std::string(i.icon)), text(i.blurb),
                         ShellTheme::color(i.tint), m_settings.isEnabled(tab)});
    }
    m_tools.setRows(std::move(tools));

    std::vector<ChoiceListModel::Row> tiles;
    for (DashTile tile : m_settings.dashboardTiles()) tiles.push_back(tileRow(tile));
    m_tiles.setRows(std::move(tiles));

    const auto& visible = m_settings.visibleToggles();
    std::vector<ChoiceListModel::Row> toggles;
    for (std::size_t i = 0; i < kQuickToggleCount; ++i) {
        const auto toggle = static_cast<QuickToggle>(i);
        if (m_toggleAvailable && !m_toggleAvailable(toggle)) continue;
        const auto& t = info(toggle);
        const bool shown = std::find(visible.begin(), visible.end(), toggle) != visible.end();
        toggles.push_back({text(t.raw), text(t.title), {}, text(t.blurb), {}, shown});
    }
    m_toggles.setRows(std::move(toggles));
}

}  // namespace vantrelle
