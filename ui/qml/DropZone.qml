import QtQuick
import Vantrelle.Shell

// The catcher over the notch: a click opens the panel, a file drag turns it to the Shelf.
Item {
    MouseArea {
        anchors.fill: parent
        onPressed: Shell.dropZoneClicked()
    }
    DropArea {
        anchors.fill: parent
        keys: ["text/uri-list"]
        onEntered: (drag) => { drag.accept(Qt.CopyAction); Shell.dropZoneDragEntered() }
        onDropped: (drop) => {
            var urls = []
            for (var i = 0; i < drop.urls.length; ++i) urls.push(drop.urls[i].toString())
            Shell.dropZoneDropped(urls)
            drop.accept(Qt.CopyAction)
        }
    }
}
