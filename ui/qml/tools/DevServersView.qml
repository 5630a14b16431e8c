import QtQuick
import Vantrelle.Shell

// The servers listening on this machine that look like the user's own: port, project, kind, and Open
// and Stop for each. Polling runs only while this view is shown.
Item {
    id: view
    property bool shownNow: Shell.expanded
    onShownNowChanged: DevServers.setViewShown(shownNow)
    Component.onCompleted: DevServers.setViewShown(shownNow)
    Component.onDestruction: DevServers.setViewShown(false)

    Row {
        id: controls
        anchors { right: parent.right; top: parent.top; rightMargin: 8 }
        spacing: 10
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: DevServers.summary
            color: Theme.secondaryLabel
            font.pixelSize: 11
        }
        HeaderButton {
            glyph: Shell.glyph("arrow.clockwise")
            help: "Refresh"
            onClicked: DevServers.refresh()
        }
    }

    Text {
        anchors.centerIn: parent
        visible: DevServers.servers.count === 0
        text: "No development servers are listening"
        color: Theme.secondaryLabel
        font.pixelSize: 13
    }

    ListView {
        anchors { left: parent.left; right: parent.right; top: controls.bottom; bottom: parent.bottom
                  topMargin: 10; leftMargin: 8; rightMargin: 8 }
        clip: true
        spacing: 6
        model: DevServers.servers
        delegate: Rectangle {
            id: row
            required property int port
            required property string project
            required property string kind
            required property string process
            required property int pid
            required property string url
            required property bool isDocker
            required property bool stopping
            width: ListView.view.width
            height: 44
            radius: 10
            color: Theme.surface
            opacity: row.stopping ? 0.5 : 1

            Text {
                id: portText
                anchors { left: parent.left; leftMargin: 12; verticalCenter: parent.verticalCenter }
                width: 64
                text: ":" + row.port
                color: Theme.teal
                font.pixelSize: 16
                font.weight: Font.Bold
            }
            Column {
                anchors { left: portText.right; leftMargin: 8; verticalCenter: parent.verticalCenter }
                Text { text: row.project; color: Theme.label; font.pixelSize: 13; font.weight: Font.DemiBold }
                Text { text: row.kind + " · " + row.process + " (" + row.pid + ")"; color: Theme.secondaryLabel
                       font.pixelSize: 11 }
            }
            Row {
                anchors { right: parent.right; rightMargin: 10; verticalCenter: parent.verticalCenter }
                spacing: 8
                Text {
                    visible: row.isDocker
                    anchors.verticalCenter: parent.verticalCenter
                    text: DevServers.dockerHelp
                    color: Theme.secondaryLabel
                    font.pixelSize: 11
                }
                Rectangle {
                    width: 64; height: 24; radius: 12
                    color: openHover.containsMouse ? "#3A3A3C" : Theme.surfaceStrong
                    Text { anchors.centerIn: parent; text: "Open"; color: Theme.label; font.pixelSize: 11 }
                    MouseArea { id: openHover; anchors.fill: parent; hoverEnabled: true
                                cursorShape: Qt.PointingHandCursor; onClicked: DevServers.open(row.port) }
                }
                Rectangle {
                    visible: !row.isDocker
                    width: 64; height: 24; radius: 12
                    color: stopHover.containsMouse ? "#5A2A2A" : Theme.surfaceStrong
                    Text { anchors.centerIn: parent; text: row.stopping ? "Stopping" : "Stop"
                           color: Theme.negative; font.pixelSize: 11 }
                    MouseArea { id: stopHover; anchors.fill: parent; hoverEnabled: true; enabled: !row.stopping
                                cursorShape: Qt.PointingHandCursor; onClicked: DevServers.stop(row.port) }
                }
            }
        }
    }
}
