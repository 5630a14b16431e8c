import QtQuick
import QtQuick.Controls.Basic as C
import Vantrelle.Shell

// The Dashboard's eight tiles in the order they show, two rows of four. Drag a row by its handle to
// move it; pick another tile for a slot to swap it in.
Item {
    id: page
    Text {
        id: heading
        width: parent.width
        text: "Drag a tile to move it. Choosing a tile that is already shown swaps the two."
        color: Theme.secondaryLabel
        font.pixelSize: 12
        wrapMode: Text.Wrap
    }
    ListView {
        id: list
        anchors { top: heading.bottom; topMargin: 8; left: parent.left; right: parent.right; bottom: parent.bottom }
        interactive: false
        model: Settings.tiles
        spacing: 4
        moveDisplaced: Transition { NumberAnimation { properties: "y"; duration: 150 } }
        delegate: Item {
            id: slot
            required property int index
            required property string raw
            required property string title
            required property string icon
            required property string detail
            width: list.width
            height: 46

            Rectangle {
                id: card
                width: slot.width
                height: slot.height
                radius: 10
                color: dragArea.drag.active ? Theme.surfaceStrong : Qt.rgba(1, 1, 1, 0.04)
                Drag.active: dragArea.drag.active
                Drag.hotSpot.y: height / 2
                states: State {
                    when: dragArea.drag.active
                    ParentChange { target: card; parent: page }
                    PropertyChanges { target: card; z: 10 }
                }
                Text {
                    id: handle
                    anchors { left: parent.left; leftMargin: 10; verticalCenter: parent.verticalCenter }
                    text: "⠿"
                    color: Theme.secondaryLabel
                    font.pixelSize: 18
                    MouseArea {
                        id: dragArea
                        anchors.fill: parent
                        anchors.margins: -8
                        cursorShape: Qt.SizeAllCursor
                        drag.target: card
                        drag.axis: Drag.YAxis
                        onReleased: {
                            var p = card.mapToItem(list.contentItem, 0, card.height / 2)
                            var to = list.indexAt(10, p.y)
                            card.x = 0; card.y = 0
                            if (to >= 0 && to !== slot.index) Settings.moveTile(slot.index, to)
                        }
                    }
                }
                Text {
                    id: position
                    anchors { left: handle.right; leftMargin: 10; verticalCenter: parent.verticalCenter }
                    text: (slot.index + 1) + "."
                    color: Theme.secondaryLabel
                    font.pixelSize: 12
                    width: 18
                }
                Icon { id: glyph; anchors { left: position.right; leftMargin: 6; verticalCenter: parent.verticalCenter }
                       glyph: slot.icon; size: 16 }
                Column {
                    anchors { left: glyph.right; leftMargin: 10; right: picker.left; rightMargin: 10; verticalCenter: parent.verticalCenter }
                    Text { text: slot.title; color: Theme.label; font.pixelSize: 13 }
                    Text { text: slot.detail; color: Theme.secondaryLabel; font.pixelSize: 11; width: parent.width; elide: Text.ElideRight }
                }
                C.ComboBox {
                    id: picker
                    anchors { right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
                    width: 150
                    model: Settings.allTiles
                    textRole: "title"
                    valueRole: "raw"
                    displayText: "Change…"
                    onActivated: (index) => Settings.placeTile(slot.index, valueAt(index))
                }
            }
        }
    }
}
