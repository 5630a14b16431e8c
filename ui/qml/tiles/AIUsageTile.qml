import QtQuick
import Vantrelle.Shell

// The AI usage tile: today's tokens and cost, and the 5-hour window.
Column {
    spacing: 2
    Text { text: AIUsage.today.tokens; color: Theme.label; font.pixelSize: 22; font.weight: Font.Bold }
    Text { text: AIUsage.today.cost + " today"; color: Theme.positive; font.pixelSize: 11 }
    Item { width: 1; height: 6 }
    Rectangle {
        width: parent.width
        height: 5
        radius: 2.5
        color: Qt.rgba(1, 1, 1, 0.1)
        Rectangle {
            width: parent.width * AIUsage.block.progress
            height: parent.height
            radius: parent.radius
            color: AIUsage.block.overBudget ? Theme.orange : Theme.purple
        }
    }
    Text {
        text: AIUsage.block.open ? AIUsage.block.tokens + " in window · " + AIUsage.block.timeLeft + " left"
                                   : "No 5-hour window open"
        color: Theme.secondaryLabel
        font.pixelSize: 10
    }
}
