import QtQuick
import Vantrelle.Shell

// The System tile: processor and memory, live while the panel is open.
Column {
    spacing: 2
    property bool shownNow: Shell.expanded
    onShownNowChanged: SystemStats.setTileShown(shownNow)
    Component.onCompleted: SystemStats.setTileShown(shownNow)
    Component.onDestruction: SystemStats.setTileShown(false)
    Text { text: Math.round(SystemStats.cpu * 100) + "% CPU"; color: Theme.label; font.pixelSize: 20; font.weight: Font.Bold }
    Text { text: Math.round(SystemStats.memory * 100) + "% memory"; color: Theme.purple; font.pixelSize: 11 }
    Text { text: "↓ " + SystemStats.download + "  ↑ " + SystemStats.upload; color: Theme.secondaryLabel; font.pixelSize: 10 }
}
