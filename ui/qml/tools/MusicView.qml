import QtQuick
import Vantrelle.Shell

// What is playing: the artwork, the title and artist, a progress bar to seek on, the three controls
// and the player's name. With nothing playing, a way to open an installed player.
Item {
    id: view
    property bool shownNow: Shell.expanded
    onShownNowChanged: Media.active = shownNow
    Component.onCompleted: Media.active = shownNow
    Component.onDestruction: Media.active = false

    Rectangle {
        id: cover
        width: Math.min(parent.height - 16, 220)
        height: width
        radius: 16
        color: Theme.surfaceStrong
        clip: true
        anchors { left: parent.left; verticalCenter: parent.verticalCenter; leftMargin: 16 }
        Image {
            anchors.fill: parent
            visible: Media.artworkUrl !== ""
            source: Media.artworkUrl
            sourceSize: Qt.size(width * 2, height * 2)
            fillMode: Image.PreserveAspectCrop
            asynchronous: true
        }
        Icon {
            anchors.centerIn: parent
            visible: Media.artworkUrl === ""
            glyph: Shell.glyph("music.note")
            size: parent.width * 0.35
            color: Theme.secondaryLabel
        }
    }

    Column {
        id: details
        visible: Media.hasTrack
        anchors { left: cover.right; right: parent.right; verticalCenter: parent.verticalCenter
                  leftMargin: 24; rightMargin: 24 }
        spacing: 6

        Text {
            width: parent.width
            text: Media.playerName
            color: Theme.secondaryLabel
            font.pixelSize: 11
            font.capitalization: Font.AllUppercase
            font.letterSpacing: 0.8
        }
        Text {
            width: parent.width
            text: Media.title
            color: Theme.label
            font.pixelSize: 22
            font.weight: Font.Bold
            elide: Text.ElideRight
        }
        Text {
            width: parent.width
            text: Media.album !== "" ? Media.artist + " — " + Media.album : Media.artist
            color: Theme.secondaryLabel
            font.pixelSize: 14
            elide: Text.ElideRight
        }
        Item { width: 1; height: 8 }

        // Progress: click or drag to seek.
        Item {
            width: parent.width
            height: 14
            Rectangle {
                id: track
                anchors.verticalCenter: parent.verticalCenter
                width: parent.width
                height: 5
                radius: 2.5
                color: Qt.rgba(1, 1, 1, 0.12)
                Rectangle {
                    width: parent.width * (seekArea.pressed ? seekArea.fraction : Media.progress)
                    height: parent.height
                    radius: parent.radius
                    color: Theme.label
                }
            }
            MouseArea {
                id: seekArea
                anchors.fill: parent
                cursorShape: Qt.PointingHandCursor
                property real fraction: 0
                function follow(x) { fraction = Math.max(0, Math.min(1, x / width)) }
                onPressed: (mouse) => follow(mouse.x)
                onPositionChanged: (mouse) => follow(mouse.x)
                onReleased: Media.seekTo(fraction)
            }
        }
        Item {
            width: parent.width
            height: 14
            Text { text: Media.positionText; color: Theme.secondaryLabel; font.pixelSize: 11 }
            Text { anchors.right: parent.right; text: Media.durationText; color: Theme.secondaryLabel; font.pixelSize: 11 }
        }

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 28
            Repeater {
                model: [
                    { glyph: "backward.fill", size: 26, action: "previous" },
                    { glyph: Media.playing ? "pause.fill" : "play.fill", size: 36, action: "playPause" },
                    { glyph: "forward.fill", size: 26, action: "next" }
                ]
                delegate: Item {
                    required property var modelData
                    width: 44
                    height: 44
                    Icon {
                        anchors.centerIn: parent
                        glyph: Shell.glyph(modelData.glyph)
                        size: modelData.size
                        opacity: press.pressed ? 0.6 : 1
                    }
                    MouseArea {
                        id: press
                        anchors.fill: parent
                        cursorShape: Qt.PointingHandCursor
                        onClicked: {
                            if (modelData.action === "previous") Media.previous()
                            else if (modelData.action === "next") Media.next()
                            else Media.playPause()
                        }
                    }
                }
            }
        }
    }

    // Nothing playing.
    Column {
        visible: !Media.hasTrack
        anchors { left: cover.right; right: parent.right; verticalCenter: parent.verticalCenter
                  leftMargin: 24; rightMargin: 24 }
        spacing: 10
        Text {
            text: "Nothing playing"
            color: Theme.label
            font.pixelSize: 20
            font.weight: Font.Bold
        }
        Text {
            width: parent.width
            text: "Start Spotify or any player that speaks MPRIS, and it shows here."
            color: Theme.secondaryLabel
            font.pixelSize: 13
            wrapMode: Text.WordWrap
        }
        Rectangle {
            visible: Media.openableName !== ""
            width: openRow.implicitWidth + 24
            height: 30
            radius: 15
            color: openArea.containsMouse ? "#3A3A3C" : Theme.surfaceStrong
            Row {
                id: openRow
                anchors.centerIn: parent
                spacing: 6
                Icon { glyph: Shell.glyph("arrow.up.forward.app"); size: 14; anchors.verticalCenter: parent.verticalCenter }
                Text { text: "Open " + Media.openableName; color: Theme.label; font.pixelSize: 13 }
            }
            MouseArea {
                id: openArea
                anchors.fill: parent
                hoverEnabled: true
                cursorShape: Qt.PointingHandCursor
                onClicked: Media.openPlayer()
            }
        }
    }
}
