import QtQuick
import Vantrelle.Shell

// The Shelf tile: how many files wait, and the newest ones by name.
Column {
    spacing: 2
    Text {
        text: Shelf.items.count === 1 ? "1 file" : Shelf.items.count + " files"
        color: Theme.label
        font.pixelSize: 22
        font.weight: Font.Bold
    }
    Repeater {
        model: Shelf.items
        delegate: Text {
            required property int index
            required property string name
            visible: index < 2  // what fits under the count in a tile
            width: parent ? parent.width : 0
            text: name
            color: Theme.secondaryLabel
            font.pixelSize: 11
            elide: Text.ElideMiddle
        }
    }
}
