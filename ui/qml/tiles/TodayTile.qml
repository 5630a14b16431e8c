import QtQuick
import Vantrelle.Shell

// The Today tile: the next two events, or the next one and a Join button for the next call.
Column {
    id: tile
    spacing: 4
    Text {
        visible: Today.events.count === 0
        text: Today.hasCalendars ? "Nothing more today" : "No calendars found"
        color: Theme.secondaryLabel
        font.pixelSize: 11
    }
    Repeater {
        model: Today.events
        delegate: Column {
            required property int index
            required property string title
            required property string time
            required property bool declined
            required property string service
            visible: index < (join.visible ? 1 : 2)
            width: parent.width
            Text {
                width: parent.width
                text: parent.title
                elide: Text.ElideRight
                color: parent.declined ? Theme.secondaryLabel : Theme.label
                font.pixelSize: 13
                font.weight: Font.DemiBold
            }
            Text {
                text: parent.time + (parent.service !== "" ? "  ·  " + parent.service : "")
                color: Theme.secondaryLabel
                font.pixelSize: 10
            }
        }
    }
    Rectangle {
        id: join
        objectName: "todayTileJoin"
        visible: Today.joinUrl !== ""
        width: Math.min(tile.width, joinLabel.implicitWidth + 22)
        height: 24
        radius: 12
        color: joinMouse.containsMouse ? Qt.darker(Theme.blue, 1.15) : Theme.blue
        Text {
            id: joinLabel
            anchors.centerIn: parent
            width: Math.min(implicitWidth, tile.width - 22)
            elide: Text.ElideRight
            text: Today.joinService + "  ·  " + Today.joinTitle
            color: "white"
            font.pixelSize: 11
            font.weight: Font.DemiBold
        }
        MouseArea {
            id: joinMouse
            anchors.fill: parent
            hoverEnabled: true
            cursorShape: Qt.PointingHandCursor
            onClicked: Today.join(Today.joinUrl)
        }
    }
}
