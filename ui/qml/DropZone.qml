import QtQuick
import Vantrelle.Shell

// The catcher over the notch: a click opens the panel, a file drag turns it to the Shelf. Without a
// compositor its window is painted black and cut to the notch's shape.
Item {
    id: zone
    // The shell's hairline, drawn again on top where this window covers it. With a live activity the
    // shell is wider than the notch, so only its bottom edge runs through here.
    Rectangle {
        visible: Shell.outlined && !Shell.expanded && !Shell.hasActivity
        y: -Shell.cornerRadius - 1
        width: zone.width
        height: zone.height + Shell.cornerRadius + 1
        radius: Shell.cornerRadius
        color: "transparent"
        border.width: 1
        border.color: Qt.rgba(1, 1, 1, 0.35)
    }
    Rectangle {
        visible: Shell.outlined && !Shell.expanded && Shell.hasActivity
        anchors.bottom: parent.bottom
        width: zone.width
        height: 1
        color: Qt.rgba(1, 1, 1, 0.35)
    }
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
