import QtQuick
import Vantrelle.Shell

// The Shelf tile: how many files wait, and the newest ones by name.
Column {
    id: tile
    spacing: 2
    // The names that fit under the count in the tile's height.
    readonly property int rowsThatFit:
        Math.max(0, Math.floor((height - headline.height) / (rowMetrics.height + spacing)))
    FontMetrics { id: rowMetrics; font.pixelSize: 11 }
    Text {
        id: headline
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
            visible: index < tile.rowsThatFit
            width: parent ? parent.width : 0
            text: name
            color: Theme.secondaryLabel
            font.pixelSize: 11
            elide: Text.ElideMiddle
        }
    }
}
