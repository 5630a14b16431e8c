import QtQuick
import Vantrelle.Shell

// The Screen Time tile: today's total and the application in front.
Column {
    id: tile
    spacing: 2
    // The applications that fit under the total in the tile's height.
    readonly property int rowsThatFit:
        Math.max(0, Math.floor((height - total.height - current.height - spacing) / (rowMetrics.height + spacing)))
    FontMetrics { id: rowMetrics; font.pixelSize: 10 }
    Text { id: total; text: ScreenTime.total; color: Theme.label; font.pixelSize: 22; font.weight: Font.Bold }
    Text { id: current; text: ScreenTime.current !== "" ? ScreenTime.current : "Away"; color: Theme.blue; font.pixelSize: 11 }
    Repeater {
        model: ScreenTime.apps
        Text {
            required property int index
            required property string name
            required property string duration
            visible: index < tile.rowsThatFit
            text: name + " · " + duration
            color: Theme.secondaryLabel
            font.pixelSize: 10
            elide: Text.ElideRight
            width: parent.width
        }
    }
}
