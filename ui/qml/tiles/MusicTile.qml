import QtQuick
import Vantrelle.Shell

// The music tile: artwork, title and artist, progress and play/pause.
Item {
    implicitHeight: 64
    Component.onCompleted: Media.active = visible
    onVisibleChanged: Media.active = visible
    Component.onDestruction: Media.active = false

    Rectangle {
        id: art
        width: 48; height: 48; radius: 8
        color: Theme.surfaceStrong
        clip: true
        Image {
            anchors.fill: parent
            visible: Media.artworkUrl !== ""
            source: Media.artworkUrl
            sourceSize: Qt.size(96, 96)
            fillMode: Image.PreserveAspectCrop
            asynchronous: true
        }
        Icon {
            anchors.centerIn: parent
            visible: Media.artworkUrl === ""
            glyph: Shell.glyph("music.note")
            size: 20
            color: Theme.secondaryLabel
        }
    }
    Column {
        anchors { left: art.right; right: playButton.left; leftMargin: 10; rightMargin: 6; top: art.top }
        spacing: 2
        Text {
            width: parent.width
            text: Media.hasTrack ? Media.title : "Nothing playing"
            color: Theme.label
            font.pixelSize: 13
            font.weight: Font.DemiBold
            elide: Text.ElideRight
        }
        Text {
            width: parent.width
            text: Media.artist
            color: Theme.secondaryLabel
            font.pixelSize: 11
            elide: Text.ElideRight
        }
        Item { width: 1; height: 4 }
        Rectangle {
            visible: Media.hasTrack
            width: parent.width
            height: 4
            radius: 2
            color: Qt.rgba(1, 1, 1, 0.1)
            Rectangle { width: parent.width * Media.progress; height: parent.height; radius: 2; color: Theme.label }
        }
    }
    Item {
        id: playButton
        visible: Media.hasTrack
        width: 32; height: 32
        anchors { right: parent.right; verticalCenter: art.verticalCenter }
        Icon { anchors.centerIn: parent; glyph: Shell.glyph(Media.playing ? "pause.fill" : "play.fill"); size: 22 }
        MouseArea { anchors.fill: parent; cursorShape: Qt.PointingHandCursor; onClicked: Media.playPause() }
    }
}
