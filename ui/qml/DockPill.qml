import QtQuick
import Vantrelle.Shell

// The row of tools below the open panel.
Rectangle {
    height: Shell.railHeight
    width: rail.width
    radius: height / 2
    color: Shell.glass ? Theme.glassDark : "black"
    ToolRail { id: rail; anchors.centerIn: parent }
}
