import QtQuick
import Vantrelle.Shell

// To-dos due today from the calendars; a tick marks one done in its own file.
Item {
    id: view
    Component.onCompleted: Reminders.refresh()
    onVisibleChanged: if (visible) Reminders.refresh()

    Text {
        anchors.centerIn: parent
        visible: Reminders.items.count === 0
        text: "No reminders due today"
        color: Theme.secondaryLabel
        font.pixelSize: 14
    }

    ListView {
        anchors { fill: parent; leftMargin: 12; rightMargin: 12; topMargin: 4; bottomMargin: 4 }
        clip: true
        spacing: 6
        model: Reminders.items
        delegate: Rectangle {
            id: row
            required property int index
            required property string title
            required property string due
            required property string calendar
            required property bool done
            width: ListView.view.width
            height: 44
            radius: 12
            color: Theme.surface

            Rectangle {
                id: tick
                anchors { left: parent.left; verticalCenter: parent.verticalCenter; leftMargin: 12 }
                width: 20; height: 20; radius: 10
                color: row.done ? Theme.orange : "transparent"
                border.color: row.done ? Theme.orange : Theme.secondaryLabel
                border.width: 1.5
                Text { anchors.centerIn: parent; visible: row.done; text: "✓"; color: "white"; font.pixelSize: 12 }
                MouseArea {
                    anchors.fill: parent
                    anchors.margins: -6
                    enabled: !row.done
                    cursorShape: Qt.PointingHandCursor
                    onClicked: Reminders.complete(row.index)
                }
            }
            Text {
                anchors { left: tick.right; right: dueLabel.left; verticalCenter: parent.verticalCenter; leftMargin: 12; rightMargin: 8 }
                text: row.title
                elide: Text.ElideRight
                color: row.done ? Theme.secondaryLabel : Theme.label
                font.pixelSize: 14
                font.strikeout: row.done
            }
            Text {
                id: dueLabel
                anchors { right: parent.right; verticalCenter: parent.verticalCenter; rightMargin: 12 }
                text: row.due + (row.calendar !== "" ? "  ·  " + row.calendar : "")
                color: Theme.secondaryLabel
                font.pixelSize: 11
            }
        }
    }
}
