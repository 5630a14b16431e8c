import QtQuick
import QtQuick.Controls.Basic as C
import Vantrelle.Shell

// How the notch behaves and looks, the feeds of the Shelf, meetings, AI usage and start-up.
Flickable {
    id: page
    contentHeight: rows.height
    clip: true
    boundsBehavior: Flickable.StopAtBounds

    Column {
        id: rows
        width: page.width
        SettingsSection { text: "Notch" }
        SettingsRow {
            label: "Hover delay"
            help: "Seconds the pointer rests on the notch before the panel opens."
            C.TextField {
                id: hoverDelay
                objectName: "hoverDelay"
                width: 90
                focus: true
                text: Number(Settings.hoverDelay).toLocaleString(Qt.locale("C"), 'f', 2)
                validator: DoubleValidator { bottom: 0; top: 10; decimals: 2; notation: DoubleValidator.StandardNotation; locale: "C" }
                horizontalAlignment: TextInput.AlignRight
                onEditingFinished: Settings.hoverDelay = parseFloat(text)
                Component.onCompleted: { forceActiveFocus(); selectAll() }
            }
        }
        SettingsRow {
            label: "Draw a notch where the screen has none"
            Switch { checked: Settings.simulateNotch; onToggled: Settings.simulateNotch = !checked }
        }
        SettingsRow {
            label: "Outline the drawn notch"
            help: "A hairline and a faint glow, so the notch can be found on a dark desktop."
            opacity: Settings.simulateNotch ? 1 : 0.5
            Switch { checked: Settings.notchOutline; onToggled: Settings.notchOutline = !checked }
        }
        SettingsRow {
            label: "Hide in full screen"
            Switch { checked: Settings.hideInFullScreen; onToggled: Settings.hideInFullScreen = !checked }
        }
        SettingsRow {
            label: "Stay quiet during calls"
            help: "While another program uses the camera, hovering doesn't open the panel."
            Switch { checked: Settings.quietDuringCalls; onToggled: Settings.quietDuringCalls = !checked }
        }

        SettingsSection { text: "Look" }
        SettingsRow {
            label: "Appearance"
            help: "Applies to the glass panel; the plain panel is always dark."
            C.ComboBox {
                width: 180
                model: Settings.appearances
                currentIndex: Settings.appearance
                onActivated: (index) => Settings.appearance = index
            }
        }
        SettingsRow {
            label: "Glass panel"
            Switch { checked: Settings.glassPanel; onToggled: Settings.glassPanel = !checked }
        }
        SettingsRow {
            label: "Show the dock below the panel"
            Switch { checked: Settings.showDock; onToggled: Settings.showDock = !checked }
        }

        SettingsSection { text: "Shelf" }
        SettingsRow {
            label: "Add finished downloads"
            Switch { checked: Settings.addDownloadsToShelf; onToggled: Settings.addDownloadsToShelf = !checked }
        }
        SettingsRow {
            label: "Add new screenshots"
            Switch { checked: Settings.addScreenshotsToShelf; onToggled: Settings.addScreenshotsToShelf = !checked }
        }

        SettingsSection { text: "Meetings" }
        SettingsRow {
            label: "Heads-up before a meeting"
            help: "Opens the notch on Today shortly before an event starts."
            Switch { checked: Settings.meetingHeadsUp; onToggled: Settings.meetingHeadsUp = !checked }
        }
        SettingsRow {
            label: "Heads-up lead"
            opacity: Settings.meetingHeadsUp ? 1 : 0.5
            SettingsNumber { from: 1; to: 60; unit: "min"; value: Settings.meetingHeadsUpMinutes
                             onEdited: (v) => Settings.meetingHeadsUpMinutes = v }
        }
        SettingsRow {
            label: "Wrapped reminders"
            Switch { checked: Settings.wrappedReminders; onToggled: Settings.wrappedReminders = !checked }
        }

        SettingsSection { text: "Calendars"; visible: Settings.hasCalendarSettings }
        Repeater {
            model: Settings.hasCalendarSettings ? Settings.calendarFolders : null
            SettingsRow {
                id: folderRow
                required property string path
                required property bool added
                required property bool found
                objectName: "calendarFolder"
                label: path
                help: (added ? "Added" : "Default") + (found ? "" : ", not found")
                opacity: found ? 1 : 0.6
                C.Button {
                    visible: folderRow.added
                    text: "Remove"
                    onClicked: Settings.removeCalendarFolder(folderRow.path)
                }
            }
        }
        SettingsRow {
            visible: Settings.hasCalendarSettings
            label: "Another calendar folder"
            help: "A folder of .ics files, or of calendars as vdirsyncer and khal keep them."
            C.Button { objectName: "addCalendarFolder"; text: "Add Folder…"; onClicked: Settings.addCalendarFolder() }
        }
        SettingsRow {
            visible: Settings.hasCalendarSettings
            label: "Your addresses"
            help: "The attendee with one of these addresses is you: a meeting you declined gets no heads-up."
            C.TextField {
                objectName: "calendarAddresses"
                width: 260
                text: Settings.calendarAddresses
                placeholderText: "you@example.com, …"
                onEditingFinished: Settings.calendarAddresses = text
            }
        }

        SettingsSection { text: "AI usage" }
        SettingsRow {
            label: "Token budget per 5-hour window"
            help: "0 means no budget."
            C.TextField {
                width: 130
                text: String(Settings.aiBlockTokenBudget)
                validator: IntValidator { bottom: 0 }
                horizontalAlignment: TextInput.AlignRight
                onEditingFinished: Settings.aiBlockTokenBudget = Number(text)
            }
        }
        SettingsRow {
            label: "Show agent activity in the closed notch"
            Switch { checked: Settings.aiLiveActivity; onToggled: Settings.aiLiveActivity = !checked }
        }
        SettingsRow {
            visible: Settings.statusLineAvailable
            label: "Claude Code status line"
            help: Settings.statusLineNote !== "" ? Settings.statusLineNote
                                                 : "Shows cost, today and the 5-hour window under Claude Code's prompt."
            Switch {
                checked: Settings.statusLineInstalled
                onToggled: Settings.setStatusLineInstalled(!Settings.statusLineInstalled)
            }
        }

        SettingsSection { text: "Start-up" }
        SettingsRow {
            label: "Launch at login"
            Switch { checked: Settings.launchAtLogin; onToggled: Settings.launchAtLogin = !checked }
        }
    }
}
