import QtQuick
import Vantrelle.Shell

// The Screen Time tile: today's total and the application in front.
Column {
    spacing: 2
    Text { text: ScreenTime.total; color: Theme.label; font.pixelSize: 22; font.weight: Font.Bold }
    Text { text: ScreenTime.current !== "" ? ScreenTime.current : "Away"; color: Theme.blue; font.pixelSize: 11 }
    Repeater {
        model: ScreenTime.apps
        Text {
            required property int index
            required property string name
            required property string duration
            visible: index < 1  // what fits under the total in a tile
            text: name + " · " + duration
            color: Theme.secondaryLabel
            font.pixelSize: 10
            elide: Text.ElideRight
            width: parent.width
        }
    }
}
