import QtQuick
import Vantrelle.Shell

// The Pomodoro tile: the timer, what it is doing, and today's blocks.
Column {
    spacing: 2
    Row {
        spacing: 8
        ProgressRing {
            width: 22
            height: 22
            lineWidth: 3
            progress: Focus.progress
            tint: Focus.inBreak ? Theme.teal : Theme.orange
            anchors.verticalCenter: parent.verticalCenter
        }
        Text { text: Focus.timeString; color: Theme.label; font.pixelSize: 22; font.weight: Font.Bold }
    }
    Text { text: Focus.statusText; color: Focus.status === "running" ? Theme.orange : Theme.secondaryLabel; font.pixelSize: 11 }
    Item { width: 1; height: 6 }
    Text {
        text: Focus.sessionsToday + (Focus.sessionsToday === 1 ? " block today" : " blocks today")
        color: Theme.secondaryLabel
        font.pixelSize: 10
    }
}
