import QtQuick
import Vantrelle.Shell

// Files dropped on the notch or found by the watchers, ready to drag out; images can be converted.
Item {
    id: view

    DropArea {
        anchors.fill: parent
        keys: ["text/uri-list"]
        onDropped: (drop) => {
            var urls = []
            for (var i = 0; i < drop.urls.length; ++i) urls.push(drop.urls[i].toString())
            Shelf.addUrls(urls)
            drop.accept(Qt.CopyAction)
        }
    }

    Row {
        id: header
        anchors { left: parent.left; right: parent.right; top: parent.top; leftMargin: 12; rightMargin: 12 }
        height: 24
        Text {
            width: parent.width - clearButton.width
            text: shelfList.count === 1 ? "1 file" : shelfList.count + " files"
            color: Theme.secondaryLabel
            font.pixelSize: 12
            anchors.verticalCenter: parent.verticalCenter
        }
        Text {
            id: clearButton
            objectName: "shelfClear"
            visible: shelfList.count > 0
            text: "Clear"
            color: clearArea.containsMouse ? Theme.label : Theme.secondaryLabel
            font.pixelSize: 12
            anchors.verticalCenter: parent.verticalCenter
            MouseArea { id: clearArea; anchors.fill: parent; hoverEnabled: true; onClicked: Shelf.clear() }
        }
    }

    ListView {
        id: shelfList
        objectName: "shelfList"
        anchors { left: parent.left; right: parent.right; top: header.bottom; topMargin: 8
                  leftMargin: 8; rightMargin: 8 }
        height: 120
        orientation: ListView.Horizontal
        spacing: 8
        clip: true
        model: Shelf.items
        delegate: ShelfItemTile { }
        Text {
            anchors.centerIn: parent
            visible: shelfList.count === 0
            text: "Drop files on the notch to keep them here"
            color: Theme.secondaryLabel
            font.pixelSize: 13
        }
    }

    Row {
        id: strip
        objectName: "conversionStrip"
        anchors { left: parent.left; top: shelfList.bottom; topMargin: 10; leftMargin: 12 }
        spacing: 6
        visible: Shelf.convertingId !== ""
        Repeater {
            model: Shelf.conversions
            delegate: Rectangle {
                required property var modelData
                width: label.implicitWidth + 20
                height: 26
                radius: 13
                color: area.containsMouse ? Theme.surfaceStrong : Theme.surface
                Text { id: label; anchors.centerIn: parent; text: modelData.title; color: Theme.label; font.pixelSize: 12 }
                MouseArea {
                    id: area
                    anchors.fill: parent
                    hoverEnabled: true
                    onClicked: Shelf.convert(Shelf.convertingId, modelData.raw)
                }
            }
        }
    }

    Text {
        objectName: "shelfMessage"
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; leftMargin: 12; bottomMargin: 4 }
        text: Shelf.message
        visible: text !== ""
        color: Theme.secondaryLabel
        font.pixelSize: 12
        elide: Text.ElideMiddle
    }
}
