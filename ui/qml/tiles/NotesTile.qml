import QtQuick
import Vantrelle.Shell

// The notes tile: the latest notes that have text, title and first line.
Item {
    clip: true
    Column {
        anchors { left: parent.left; right: parent.right; top: parent.top }
        spacing: 5
        Repeater {
            model: Notes.latest
            Column {
                id: note
                required property string title
                required property string preview
                width: parent.width
                Text { width: parent.width; text: note.title; color: Theme.label; font.pixelSize: 12
                       font.weight: Font.DemiBold; elide: Text.ElideRight }
                Text { width: parent.width; text: note.preview; color: Theme.secondaryLabel; font.pixelSize: 10
                       elide: Text.ElideRight; visible: text !== "" }
            }
        }
    }
    Text {
        anchors.bottom: parent.bottom
        visible: Notes.filledCount === 0
        text: "No notes yet"
        color: Theme.secondaryLabel
        font.pixelSize: 11
    }
}
