import QtQuick
import QtQuick.Controls.Basic as C
import Vantrelle.Shell

// The Launcher tile: the desktop's favourite applications as icons; a click starts one.
Item {
    id: tile
    readonly property int side: 34
    readonly property int gap: 8
    readonly property int columns: Math.max(1, Math.floor((width + gap) / (side + gap)))

    Text {
        visible: Launcher.apps.count === 0
        anchors.fill: parent
        verticalAlignment: Text.AlignBottom
        wrapMode: Text.WordWrap
        text: Launcher.emptyText
        color: Theme.secondaryLabel
        font.pixelSize: 11
    }

    Grid {
        columns: tile.columns
        spacing: tile.gap
        Repeater {
            model: Launcher.apps
            Item {
                id: cell
                required property int index
                required property string appId
                required property string name
                required property string iconSource
                width: tile.side
                height: tile.side
                // Only whole rows show; the rest waits for a bigger tile.
                visible: Math.floor(index / tile.columns) < Math.floor((tile.height + tile.gap) / (tile.side + tile.gap))
                Rectangle {
                    anchors.fill: parent
                    radius: 8
                    color: area.containsMouse ? Theme.surfaceStrong : "transparent"
                }
                Image {
                    anchors.centerIn: parent
                    width: tile.side - 6
                    height: tile.side - 6
                    sourceSize: Qt.size(64, 64)
                    source: cell.iconSource
                    fillMode: Image.PreserveAspectFit
                    smooth: true
                }
                MouseArea {
                    id: area
                    anchors.fill: parent
                    hoverEnabled: true
                    cursorShape: Qt.PointingHandCursor
                    onClicked: Launcher.launch(cell.appId)
                }
                C.ToolTip {
                    visible: area.containsMouse
                    delay: 400
                    text: cell.name
                }
            }
        }
    }
}
