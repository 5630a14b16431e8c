import QtQuick
import Vantrelle.Shell

// CPU, memory, disk, network and battery, read once a second while this view is shown.
Item {
    id: view
    property bool shownNow: Shell.expanded
    onShownNowChanged: SystemStats.setViewShown(shownNow)
    Component.onCompleted: SystemStats.setViewShown(shownNow)
    Component.onDestruction: SystemStats.setViewShown(false)

    Row {
        anchors.centerIn: parent
        spacing: 22
        Gauge { progress: SystemStats.cpu; tint: Theme.blue; label: Math.round(SystemStats.cpu * 100) + "%"
                caption: "CPU" }
        Gauge { progress: SystemStats.memory; tint: Theme.purple; label: Math.round(SystemStats.memory * 100) + "%"
                caption: "Memory · " + SystemStats.memoryText }
        Gauge { progress: SystemStats.disk; tint: Theme.orange; label: Math.round(SystemStats.disk * 100) + "%"
                caption: "Disk · " + SystemStats.diskText }
        Column {
            anchors.verticalCenter: parent.verticalCenter
            spacing: 6
            Text { text: "Network"; color: Theme.secondaryLabel; font.pixelSize: 11 }
            Text { text: "↓ " + SystemStats.download; color: Theme.teal; font.pixelSize: 15; font.weight: Font.DemiBold }
            Text { text: "↑ " + SystemStats.upload; color: Theme.positive; font.pixelSize: 15; font.weight: Font.DemiBold }
            Item { width: 1; height: 8 }
            Text { text: "Battery"; color: Theme.secondaryLabel; font.pixelSize: 11 }
            Text {
                text: SystemStats.hasBattery ? Math.round(SystemStats.battery * 100) + "%" + (SystemStats.charging ? " · charging" : "")
                                             : "No battery"
                color: Theme.label
                font.pixelSize: 15
            }
        }
    }
}
