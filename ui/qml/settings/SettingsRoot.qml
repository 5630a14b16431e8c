import QtQuick
import QtQuick.Window
import Vantrelle.Shell

// The settings window: the pages down the left, the page's rows on the right. Every change applies at
// once; there is nothing to save.
Rectangle {
    id: root
    color: Theme.surface
    focus: true
    // Escape closes the window, as it closes the panel.
    Keys.onEscapePressed: (event) => { event.accepted = true; Window.window.close() }

    Column {
        id: sidebar
        anchors { left: parent.left; top: parent.top; bottom: parent.bottom; margins: 12 }
        width: 160
        spacing: 4
        Repeater {
            model: Settings.pages
            Rectangle {
                id: pageButton
                required property int index
                required property string modelData
                readonly property bool current: Settings.page === modelData
                width: sidebar.width
                height: 32
                radius: 8
                color: current ? Qt.rgba(1, 1, 1, 0.12) : (pageMouse.containsMouse ? Qt.rgba(1, 1, 1, 0.05) : "transparent")
                Text {
                    anchors { left: parent.left; leftMargin: 12; verticalCenter: parent.verticalCenter }
                    text: Settings.pageTitles[pageButton.index]
                    color: Theme.label
                    font.pixelSize: 14
                    font.weight: pageButton.current ? Font.DemiBold : Font.Normal
                }
                MouseArea {
                    id: pageMouse
                    anchors.fill: parent
                    hoverEnabled: true
                    onClicked: Settings.page = pageButton.modelData
                }
            }
        }
    }

    Rectangle {
        anchors { left: sidebar.right; leftMargin: 12; top: parent.top; bottom: parent.bottom }
        width: 1
        color: Qt.rgba(1, 1, 1, 0.08)
    }

    Loader {
        id: pageLoader
        anchors { left: sidebar.right; right: parent.right; top: parent.top; bottom: parent.bottom
                  leftMargin: 25; rightMargin: 16; topMargin: 12; bottomMargin: 12 }
        source: {
            switch (Settings.page) {
            case "tools": return "SettingsToolsPage.qml"
            case "shortcuts": return "SettingsShortcutsPage.qml"
            case "dashboard": return "SettingsDashboardPage.qml"
            case "toggles": return "SettingsTogglesPage.qml"
            case "focus": return "SettingsFocusPage.qml"
            default: return "SettingsGeneralPage.qml"
            }
        }
        focus: true
    }
}
