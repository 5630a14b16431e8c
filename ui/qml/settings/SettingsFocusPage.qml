import QtQuick
import Vantrelle.Shell

// The Pomodoro lengths, the quick timers, the workday and how a finished block tells you.
Flickable {
    id: page
    contentHeight: rows.height
    clip: true
    boundsBehavior: Flickable.StopAtBounds

    Column {
        id: rows
        width: page.width
        SettingsSection { text: "Pomodoro" }
        SettingsRow {
            label: "Focus"
            SettingsNumber { from: 1; to: 180; unit: "min"; value: Settings.focusMinutes
                             onEdited: (v) => Settings.focusMinutes = v }
        }
        SettingsRow {
            label: "Break"
            SettingsNumber { from: 1; to: 60; unit: "min"; value: Settings.breakMinutes
                             onEdited: (v) => Settings.breakMinutes = v }
        }
        SettingsRow {
            label: "Long break"
            SettingsNumber { from: 1; to: 120; unit: "min"; value: Settings.longBreakMinutes
                             onEdited: (v) => Settings.longBreakMinutes = v }
        }
        SettingsSection { text: "Timers" }
        SettingsRow {
            label: "Quick timer"
            SettingsNumber { from: 1; to: 180; unit: "min"; value: Settings.quickTimerMinutes
                             onEdited: (v) => Settings.quickTimerMinutes = v }
        }
        SettingsRow {
            label: "Custom timer"
            SettingsNumber { from: 1; to: 600; unit: "min"; value: Settings.customTimerMinutes
                             onEdited: (v) => Settings.customTimerMinutes = v }
        }
        SettingsSection { text: "Workday" }
        SettingsRow {
            label: "Starts at"
            SettingsNumber { from: 0; to: 24 * 60; stepSize: 15; value: Settings.workdayStartMinutes
                             textFromValue: (v) => Settings.clockText(v)
                             valueFromText: (t) => { var p = t.split(":"); return parseInt(p[0]) * 60 + (parseInt(p[1]) || 0) }
                             onEdited: (v) => Settings.workdayStartMinutes = v }
        }
        SettingsRow {
            label: "Ends at"
            SettingsNumber { from: 0; to: 24 * 60; stepSize: 15; value: Settings.workdayEndMinutes
                             textFromValue: (v) => Settings.clockText(v)
                             valueFromText: (t) => { var p = t.split(":"); return parseInt(p[0]) * 60 + (parseInt(p[1]) || 0) }
                             onEdited: (v) => Settings.workdayEndMinutes = v }
        }
        SettingsSection { text: "When a block ends" }
        SettingsRow {
            label: "Play sounds"
            Switch { checked: Settings.playSounds; onToggled: Settings.playSounds = !checked }
        }
        SettingsRow {
            label: "Show notifications"
            Switch { checked: Settings.sessionNotifications; onToggled: Settings.sessionNotifications = !checked }
        }
    }
}
