import QtQuick
import Vantrelle.Shell

// The Dev Servers tile: how many servers run, and the first ports. Scans only while the panel is open.
Column {
    id: tile
    spacing: 2
    // The servers that fit under the count in the tile's height.
    readonly property int rowsThatFit:
        Math.max(0, Math.floor((height - serverCount.height - summary.height - spacing) / (rowMetrics.height + spacing)))
    FontMetrics { id: rowMetrics; font.pixelSize: 10 }
    property bool shownNow: Shell.expanded
    onShownNowChanged: DevServers.setTileShown(shownNow)
    Component.onCompleted: DevServers.setTileShown(shownNow)
    Component.onDestruction: DevServers.setTileShown(false)
    Text { id: serverCount; text: DevServers.servers.count; color: Theme.label; font.pixelSize: 22; font.weight: Font.Bold }
    Text { id: summary; text: DevServers.summary; color: Theme.teal; font.pixelSize: 11 }
    Repeater {
        model: DevServers.servers
        Text {
            required property int index
            required property int port
            required property string project
            visible: index < tile.rowsThatFit
            text: ":" + port + " " + project
            color: Theme.secondaryLabel
            font.pixelSize: 10
            elide: Text.ElideRight
            width: parent.width
        }
    }
}
