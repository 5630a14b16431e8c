import QtQuick
import Vantrelle.Shell

// Today's calendar: all-day events first, then the rest by start; a Join button on every call.
Item {
    id: view

    Column {
        anchors.centerIn: parent
        visible: !Today.hasCalendars
        spacing: 10
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: "No calendars found"
            color: Theme.label
            font.pixelSize: 15
            font.weight: Font.DemiBold
        }
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: "Vantrelle reads .ics folders such as ~/.local/share/calendars (vdirsyncer, khal) and Evolution's calendars."
            color: Theme.secondaryLabel
            font.pixelSize: 11
        }
        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: chooseLabel.implicitWidth + 24
            height: 28
            radius: 14
            color: Theme.surfaceStrong
            Text { id: chooseLabel; anchors.centerIn: parent; text: "Look again"; color: Theme.label; font.pixelSize: 12 }
            MouseArea { anchors.fill: parent; cursorShape: Qt.PointingHandCursor; onClicked: Today.requestAccess() }
        }
    }

    Text {
        anchors.centerIn: parent
        visible: Today.hasCalendars && Today.events.count === 0
        text: "Nothing more today"
        color: Theme.secondaryLabel
        font.pixelSize: 14
    }

    ListView {
        id: list
        anchors { fill: parent; leftMargin: 12; rightMargin: 12; topMargin: 4; bottomMargin: 4 }
        visible: Today.hasCalendars
        clip: true
        spacing: 6
        model: Today.events
        delegate: Rectangle {
            id: row
            required property string title
            required property string time
            required property string calendar
            required property bool allDay
            required property bool declined
            required property string joinUrl
            required property string service
            required property bool isNext
            width: ListView.view.width
            height: 48
            radius: 12
            color: row.isNext ? Qt.rgba(0.2, 0.5, 1, 0.18) : Theme.surface

            Rectangle {
                id: bar
                anchors { left: parent.left; verticalCenter: parent.verticalCenter; leftMargin: 10 }
                width: 4; height: 28; radius: 2
                color: row.allDay ? Theme.orange : (row.declined ? Theme.secondaryLabel : Theme.blue)
            }
            Column {
                anchors { left: bar.right; right: join.left; verticalCenter: parent.verticalCenter; leftMargin: 10; rightMargin: 10 }
                spacing: 2
                Text {
                    width: parent.width
                    text: row.title
                    elide: Text.ElideRight
                    color: row.declined ? Theme.secondaryLabel : Theme.label
                    font.pixelSize: 14
                    font.weight: Font.DemiBold
                    font.strikeout: row.declined
                }
                Text {
                    width: parent.width
                    text: row.time + (row.calendar !== "" ? "  ·  " + row.calendar : "") + (row.declined ? "  ·  declined" : "")
                    elide: Text.ElideRight
                    color: Theme.secondaryLabel
                    font.pixelSize: 11
                }
            }
            Rectangle {
                id: join
                anchors { right: parent.right; verticalCenter: parent.verticalCenter; rightMargin: 10 }
                visible: row.joinUrl !== ""
                width: visible ? joinLabel.implicitWidth + 22 : 0
                height: 26
                radius: 13
                color: Theme.blue
                Text { id: joinLabel; anchors.centerIn: parent; text: row.service; color: "white"; font.pixelSize: 12; font.weight: Font.DemiBold }
                MouseArea { anchors.fill: parent; cursorShape: Qt.PointingHandCursor; onClicked: Today.join(row.joinUrl) }
            }
        }
    }
}
