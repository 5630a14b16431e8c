import QtQuick
import Vantrelle.Shell

// One shelf item: its thumbnail (or the kind of file), its name; drag it out, remove it, convert it.
Item {
    id: tile
    required property string itemId
    required property string name
    required property string url
    required property bool isImage
    required property bool busy
    width: 96
    height: 116

    // The mouse area moves this past the drag threshold; then the file itself leaves: its address
    // for file managers and its bytes for apps that take only data.
    Item {
        id: dragProxy
        readonly property bool dragging: dragArea.drag.active
        onDraggingChanged: if (dragging) Qt.callLater(tile.dragOut)
    }
    function dragOut() {
        FileDrag.start(dragArea, tile.url)
        dragProxy.x = 0
        dragProxy.y = 0
    }

    Rectangle {
        id: frame
        anchors { horizontalCenter: parent.horizontalCenter; top: parent.top }
        width: 80
        height: 80
        radius: 12
        color: Theme.surface
        opacity: tile.url === "" ? 0.5 : 1
        Image {
            anchors.fill: parent
            anchors.margins: 4
            visible: tile.isImage && status === Image.Ready
            // Decoded on Qt's image thread at thumbnail size and kept in its pixmap cache.
            asynchronous: true
            cache: true
            sourceSize: Qt.size(144, 144)
            fillMode: Image.PreserveAspectFit
            source: tile.isImage ? tile.url : ""
        }
        Text {
            anchors.centerIn: parent
            visible: !tile.isImage
            text: {
                var dot = tile.name.lastIndexOf(".")
                return tile.url === "" ? "?" : dot > 0 ? tile.name.substring(dot + 1).toUpperCase().substring(0, 4) : "FILE"
            }
            color: Theme.secondaryLabel
            font.pixelSize: 15
            font.weight: Font.DemiBold
        }
        Text {
            anchors.centerIn: parent
            visible: tile.busy
            text: "…"
            color: Theme.label
            font.pixelSize: 22
        }
    }

    Text {
        anchors { top: frame.bottom; topMargin: 4; left: parent.left; right: parent.right }
        horizontalAlignment: Text.AlignHCenter
        text: tile.name
        color: Theme.label
        font.pixelSize: 11
        elide: Text.ElideMiddle
    }

    MouseArea {
        id: dragArea
        anchors.fill: frame
        hoverEnabled: true
        enabled: tile.url !== ""
        drag.target: dragProxy
        cursorShape: Qt.OpenHandCursor
    }

    Row {
        anchors { right: frame.right; top: frame.top; margins: -4 }
        spacing: 2
        visible: dragArea.containsMouse || removeArea.containsMouse || convertArea.containsMouse
        Rectangle {
            width: 20; height: 20; radius: 10
            visible: tile.isImage && !tile.busy
            color: Theme.surfaceStrong
            Text { anchors.centerIn: parent; text: "⇄"; color: Theme.label; font.pixelSize: 11 }
            MouseArea { id: convertArea; anchors.fill: parent; hoverEnabled: true
                        onClicked: Shelf.toggleConversions(tile.itemId) }
        }
        Rectangle {
            width: 20; height: 20; radius: 10
            color: Theme.surfaceStrong
            Text { anchors.centerIn: parent; text: "✕"; color: Theme.label; font.pixelSize: 10 }
            MouseArea { id: removeArea; anchors.fill: parent; hoverEnabled: true; onClicked: Shelf.remove(tile.itemId) }
        }
    }
}
