import QtQuick
import Vantrelle.Shell

// The row of tools below the open panel.
Rectangle {
    height: 46
    width: rail.width
    radius: 23
    color: Shell.glass ? Theme.glassDark : "black"
    ToolRail { id: rail; anchors.centerIn: parent }
}
