#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>
#include <QStringList>
#include <filesystem>
#include <functional>

#include "CalendarFolderListModel.h"
#include "ChoiceListModel.h"
#include "agents/ClaudeStatusLineSwitch.h"
#include "catalog/AppSettings.h"
#include "schedule/CalendarPreferences.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The settings window's face (`Settings` in QML): every setting as a property that writes through at
// once, the page showing, and the lists of tools, tiles and toggles. The rules stay in the settings
// store and in core/preferences; this only adapts them.
class SettingsViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Settings)
    QML_SINGLETON
    Q_PROPERTY(QString page READ page WRITE setPage NOTIFY changed)
    Q_PROPERTY(QStringList pages READ pages CONSTANT)
    Q_PROPERTY(QStringList pageTitles READ pageTitles CONSTANT)
    Q_PROPERTY(double hoverDelay READ hoverDelay WRITE setHoverDelay NOTIFY changed)
    Q_PROPERTY(bool simulateNotch READ simulateNotch WRITE setSimulateNotch NOTIFY changed)
    Q_PROPERTY(bool notchOutline READ notchOutline WRITE setNotchOutline NOTIFY changed)
    Q_PROPERTY(bool hideInFullScreen READ hideInFullScreen WRITE setHideInFullScreen NOTIFY changed)
    Q_PROPERTY(bool quietDuringCalls READ quietDuringCalls WRITE setQuietDuringCalls NOTIFY changed)
    Q_PROPERTY(int appearance READ appearance WRITE setAppearance NOTIFY changed)
    Q_PROPERTY(QStringList appearances READ appearances CONSTANT)
    Q_PROPERTY(bool glassPanel READ glassPanel WRITE setGlassPanel NOTIFY changed)
    Q_PROPERTY(bool showDock READ showDock WRITE setShowDock NOTIFY changed)
    Q_PROPERTY(bool addDownloadsToShelf READ addDownloadsToShelf WRITE setAddDownloadsToShelf NOTIFY changed)
    Q_PROPERTY(
        bool addScreenshotsToShelf READ addScreenshotsToShelf WRITE setAddScreenshotsToShelf NOTIFY changed)
    Q_PROPERTY(bool meetingHeadsUp READ meetingHeadsUp WRITE setMeetingHeadsUp NOTIFY changed)
    Q_PROPERTY(
        int meetingHeadsUpMinutes READ meetingHeadsUpMinutes WRITE setMeetingHeadsUpMinutes NOTIFY changed)
    Q_PROPERTY(bool wrappedReminders READ wrappedReminders WRITE setWrappedReminders NOTIFY changed)
    Q_PROPERTY(double aiBlockTokenBudget READ aiBlockTokenBudget WRITE setAiBlockTokenBudget NOTIFY changed)
    Q_PROPERTY(bool aiLiveActivity READ aiLiveActivity WRITE setAiLiveActivity NOTIFY changed)
    Q_PROPERTY(int focusMinutes READ focusMinutes WRITE setFocusMinutes NOTIFY changed)
    Q_PROPERTY(int breakMinutes READ breakMinutes WRITE setBreakMinutes NOTIFY changed)
    Q_PROPERTY(int longBreakMinutes READ longBreakMinutes WRITE setLongBreakMinutes NOTIFY changed)
    Q_PROPERTY(int quickTimerMinutes READ quickTimerMinutes WRITE setQuickTimerMinutes NOTIFY changed)
    Q_PROPERTY(int customTimerMinutes READ customTimerMinutes WRITE setCustomTimerMinutes NOTIFY changed)
    Q_PROPERTY(int workdayStartMinutes READ workdayStartMinutes WRITE setWorkdayStartMinutes NOTIFY changed)
    Q_PROPERTY(int workdayEndMinutes READ workdayEndMinutes WRITE setWorkdayEndMinutes NOTIFY changed)
    Q_PROPERTY(bool playSounds READ playSounds WRITE setPlaySounds NOTIFY changed)
    Q_PROPERTY(
        bool sessionNotifications READ sessionNotifications WRITE setSessionNotifications NOTIFY changed)
    Q_PROPERTY(bool launchAtLogin READ launchAtLogin WRITE setLaunchAtLogin NOTIFY changed)
    Q_PROPERTY(vantrelle::ChoiceListModel* tools READ tools CONSTANT)
    Q_PROPERTY(QString toolNote READ toolNote NOTIFY noteChanged)
    Q_PROPERTY(vantrelle::ChoiceListModel* tiles READ tiles CONSTANT)
    Q_PROPERTY(vantrelle::ChoiceListModel* allTiles READ allTiles CONSTANT)
    Q_PROPERTY(vantrelle::ChoiceListModel* toggles READ toggles CONSTANT)
    Q_PROPERTY(QString toggleNote READ toggleNote NOTIFY noteChanged)
    Q_PROPERTY(bool hasCalendarSettings READ hasCalendarSettings CONSTANT)
    Q_PROPERTY(vantrelle::CalendarFolderListModel* calendarFolders READ calendarFolders CONSTANT)
    Q_PROPERTY(
        QString calendarAddresses READ calendarAddresses WRITE setCalendarAddresses NOTIFY calendarsChanged)
    Q_PROPERTY(bool statusLineInstalled READ statusLineInstalled NOTIFY statusLineChanged)
    Q_PROPERTY(bool statusLineAvailable READ statusLineAvailable NOTIFY statusLineChanged)
    Q_PROPERTY(QString statusLineNote READ statusLineNote NOTIFY statusLineChanged)

public:
    // Shows a folder chooser and calls back with the folder picked, or an empty path.
    using FolderChooser = std::function<void(std::function<void(std::filesystem::path)>)>;

    explicit SettingsViewModel(AppSettings& settings);
    // The calendar folders and addresses join the window; without this their section stays hidden.
    void attachCalendars(CalendarPreferences& calendars, FolderChooser chooseFolder);
    // The instance the composition root gave the engine.
    static SettingsViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] QString page() const;
    void setPage(const QString& raw);
    [[nodiscard]] static QStringList pages();
    [[nodiscard]] static QStringList pageTitles();

    [[nodiscard]] double hoverDelay() const { return m_settings.hoverDelay(); }
    void setHoverDelay(double seconds);
    [[nodiscard]] bool simulateNotch() const { return m_settings.simulateNotch(); }
    void setSimulateNotch(bool on);
    [[nodiscard]] bool notchOutline() const { return m_settings.notchOutline(); }
    void setNotchOutline(bool on);
    [[nodiscard]] bool hideInFullScreen() const { return m_settings.hideInFullScreen(); }
    void setHideInFullScreen(bool on);
    [[nodiscard]] bool quietDuringCalls() const { return m_settings.quietDuringCalls(); }
    void setQuietDuringCalls(bool on);
    [[nodiscard]] int appearance() const { return static_cast<int>(m_settings.appearance()); }
    void setAppearance(int index);
    [[nodiscard]] static QStringList appearances();
    [[nodiscard]] bool glassPanel() const { return m_settings.glassPanel(); }
    void setGlassPanel(bool on);
    [[nodiscard]] bool showDock() const { return m_settings.showDock(); }
    void setShowDock(bool on);
    [[nodiscard]] bool addDownloadsToShelf() const { return m_settings.addDownloadsToShelf(); }
    void setAddDownloadsToShelf(bool on);
    [[nodiscard]] bool addScreenshotsToShelf() const { return m_settings.addScreenshotsToShelf(); }
    void setAddScreenshotsToShelf(bool on);
    [[nodiscard]] bool meetingHeadsUp() const { return m_settings.meetingHeadsUp(); }
    void setMeetingHeadsUp(bool on);
    [[nodiscard]] int meetingHeadsUpMinutes() const { return narrow(m_settings.meetingHeadsUpMinutes()); }
    void setMeetingHeadsUpMinutes(int minutes);
    [[nodiscard]] bool wrappedReminders() const { return m_settings.wrappedReminders(); }
    void setWrappedReminders(bool on);
    // Tokens as a double: QML numbers hold any budget a person types exactly.
    [[nodiscard]] double aiBlockTokenBudget() const {
        return static_cast<double>(m_settings.aiBlockTokenBudget());
    }
    void setAiBlockTokenBudget(double tokens);
    [[nodiscard]] bool aiLiveActivity() const { return m_settings.aiLiveActivity(); }
    void setAiLiveActivity(bool on);
    [[nodiscard]] int focusMinutes() const { return narrow(m_settings.focusMinutes()); }
    void setFocusMinutes(int minutes);
    [[nodiscard]] int breakMinutes() const { return narrow(m_settings.breakMinutes()); }
    void setBreakMinutes(int minutes);
    [[nodiscard]] int longBreakMinutes() const { return narrow(m_settings.longBreakMinutes()); }
    void setLongBreakMinutes(int minutes);
    [[nodiscard]] int quickTimerMinutes() const { return narrow(m_settings.quickTimerMinutes()); }
    void setQuickTimerMinutes(int minutes);
    [[nodiscard]] int customTimerMinutes() const { return narrow(m_settings.customTimerMinutes()); }
    void setCustomTimerMinutes(int minutes);
    [[nodiscard]] int workdayStartMinutes() const { return narrow(m_settings.workdayStartMinutes()); }
    void setWorkdayStartMinutes(int minutes);
    [[nodiscard]] int workdayEndMinutes() const { return narrow(m_settings.workdayEndMinutes()); }
    void setWorkdayEndMinutes(int minutes);
    [[nodiscard]] bool playSounds() const { return m_settings.playSounds(); }
    void setPlaySounds(bool on);
    [[nodiscard]] bool sessionNotifications() const { return m_settings.sessionNotifications(); }
    void setSessionNotifications(bool on);
    [[nodiscard]] bool launchAtLogin() const { return m_settings.launchAtLogin(); }
    void setLaunchAtLogin(bool on);

    [[nodiscard]] ChoiceListModel* tools() { return &m_tools; }
    [[nodiscard]] QString toolNote() const { return m_toolNote; }
    [[nodiscard]] ChoiceListModel* tiles() { return &m_tiles; }
    [[nodiscard]] ChoiceListModel* allTiles() { return &m_allTiles; }
    [[nodiscard]] ChoiceListModel* toggles() { return &m_toggles; }
    [[nodiscard]] QString toggleNote() const { return m_toggleNote; }

    [[nodiscard]] bool hasCalendarSettings() const { return m_calendars != nullptr; }
    [[nodiscard]] CalendarFolderListModel* calendarFolders() { return &m_calendarFolders; }
    [[nodiscard]] QString calendarAddresses() const;
    void setCalendarAddresses(const QString& text);
    // Asks for a folder and adds it; the calendars are read from it at once.
    Q_INVOKABLE void addCalendarFolder();
    // Removes a folder the user added; the default ones stay.
    Q_INVOKABLE void removeCalendarFolder(const QString& path);
    // Claude Code's status line: the switch, and whether there is one to show.
    void attachStatusLine(ClaudeStatusLineSwitch* statusLine);
    [[nodiscard]] bool statusLineAvailable() const { return m_statusLine != nullptr; }
    [[nodiscard]] bool statusLineInstalled() const { return m_statusLine && m_statusLine->isInstalled(); }
    [[nodiscard]] QString statusLineNote() const;
    // The answer arrives through statusLineChanged; a status line of the user's own is never replaced.
    Q_INVOKABLE void setStatusLineInstalled(bool installed);

    // Turns a tool on or off; a refusal or a caveat lands in toolNote.
    Q_INVOKABLE void setToolEnabled(const QString& raw, bool on);
    // The Dashboard tile at `from` goes to `to`, the others closing up.
    Q_INVOKABLE void moveTile(int from, int to);
    // Shows `raw` in `slot`; a tile already shown trades places with the slot's.
    Q_INVOKABLE void placeTile(int slot, const QString& raw);
    // Shows or hides a quick toggle; hiding the last one is refused and said in toggleNote.
    Q_INVOKABLE void setToggleShown(const QString& raw, bool shown);
    // The toggles page lists only what this desktop can do.
    void setToggleAvailability(std::function<bool(QuickToggle)> available) {
        m_toggleAvailable = std::move(available);
        refreshLists();
    }
    // "9:00" for 540 minutes after midnight.
    Q_INVOKABLE [[nodiscard]] static QString clockText(int minutesAfterMidnight);

Q_SIGNALS:
    void changed();
    void noteChanged();
    void calendarsChanged();
    void statusLineChanged();

private:
    [[nodiscard]] static int narrow(std::int64_t value);
    void refreshLists();
    void refreshCalendars();
    std::function<bool(QuickToggle)> m_toggleAvailable;
    void setNotes(QString tool, QString toggle);

    AppSettings& m_settings;
    ClaudeStatusLineSwitch* m_statusLine = nullptr;
    Connection m_statusLineChanged;
    ChoiceListModel m_tools;
    ChoiceListModel m_tiles;
    ChoiceListModel m_allTiles;
    ChoiceListModel m_toggles;
    QString m_toolNote;
    QString m_toggleNote;
    Connection m_connection;
    CalendarPreferences* m_calendars = nullptr;
    FolderChooser m_chooseFolder;
    CalendarFolderListModel m_calendarFolders;
    Connection m_calendarConnection;
};

}  // namespace vantrelle
