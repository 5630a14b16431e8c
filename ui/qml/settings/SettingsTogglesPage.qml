import QtQuick
import Vantrelle.Shell

// Which quick toggles the Dashboard's toggle tile shows.
Item {
    Text {
        id: heading
        width: parent.width
        text: "The quick toggles tile shows the switches that are on here, in the order you turned them on."
        color: Theme.secondaryLabel
        font.pixelSize: 12
        wrapMode: Text.Wrap
    }
    Text {
        id: note
        anchors { top: heading.bottom; topMargin: 6 }
        width: parent.width
        visible: text !== ""
        text: Settings.toggleNote
        color: Theme.orange
        font.pixelSize: 12
    }
    ListView {
        anchors { top: note.visible ? note.bottom : heading.bottom; topMargin: 8; left: parent.left; right: parent.right
                  bottom: missingBox.top }
        clip: true
        model: Settings.toggles
        boundsBehavior: Flickable.StopAtBounds
        delegate: SettingsRow {
            required property string raw
            required property string title
            required property string detail
            required property bool chosen
            width: ListView.view.width
            label: title
            help: detail
            Switch { checked: chosen; onToggled: Settings.setToggleShown(raw, !checked) }
        }
    }
    // What this desktop lacks, and why, so a missing toggle is not a mystery.
    Column {
        id: missingBox
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        spacing: 2
        visible: Toggles.missing.count > 0
        height: visible ? implicitHeight : 0
        Text {
            text: "Not available on this desktop"
            color: Theme.secondaryLabel
            font.pixelSize: 11
            font.weight: Font.DemiBold
        }
        Repeater {
            model: Toggles.missing
            Text {
                required property string title
                required property string detail
                width: missingBox.width
                text: title + ": " + detail
                color: Theme.secondaryLabel
                font.pixelSize: 11
                elide: Text.ElideRight
            }
        }
    }
}
