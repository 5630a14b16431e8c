import QtQuick
import "."

// The row of tools below the open panel.
Rectangle {
    height: 46
    width: rail.width
    radius: 23
    color: Shell.glass ? "#D91C1C1E" : "black"
    ToolRail { id: rail; anchors.centerIn: parent }
}
