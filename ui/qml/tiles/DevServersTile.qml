import QtQuick
import Vantrelle.Shell

// The Dev Servers tile: how many servers run, and the first ports. Scans only while the panel is open.
Column {
    spacing: 2
    property bool shownNow: Shell.expanded
    onShownNowChanged: DevServers.setTileShown(shownNow)
    Component.onCompleted: DevServers.setTileShown(shownNow)
    Component.onDestruction: DevServers.setTileShown(false)
    Text { text: DevServers.servers.count; color: Theme.label; font.pixelSize: 22; font.weight: Font.Bold }
    Text { text: DevServers.summary; color: Theme.teal; font.pixelSize: 11 }
    Repeater {
        model: DevServers.servers
        Text {
            required property int index
            required property int port
            required property string project
            visible: index < 1  // what fits under the count in a tile
            text: ":" + port + " " + project
            color: Theme.secondaryLabel
            font.pixelSize: 10
            elide: Text.ElideRight
            width: parent.width
        }
    }
}
