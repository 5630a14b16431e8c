import QtQuick
import Vantrelle.Shell

// The Today tile: the next two events.
Column {
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
            visible: index < 2
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
}
