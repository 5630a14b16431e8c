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
                  bottom: parent.bottom }
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
}
