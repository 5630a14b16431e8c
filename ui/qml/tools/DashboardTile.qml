import QtQuick
import Vantrelle.Shell

// One Dashboard tile.
Rectangle {
    id: card
    required property string raw
    required property string title
    required property string icon
    required property string subtitle
    required property string tool
    required property color tint
    radius: 16
    color: hover.containsMouse && card.tool !== "" ? "#262628" : Theme.surface

    Row {
        id: heading
        anchors { left: parent.left; top: parent.top; margins: 12 }
        spacing: 6
        Icon { glyph: card.icon; size: 14; color: card.tint; anchors.verticalCenter: parent.verticalCenter }
        Text { text: card.title; color: Theme.label; font.pixelSize: 12; font.weight: Font.DemiBold }
    }

    Loader {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; top: heading.bottom; margins: 12 }
        sourceComponent: card.raw === "aiUsage" ? usage : placeholder
    }

    Component {
        id: usage
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
    }
    Component {
        id: placeholder
        Text {
            wrapMode: Text.WordWrap
            verticalAlignment: Text.AlignBottom
            text: card.subtitle
            color: Theme.secondaryLabel
            font.pixelSize: 11
        }
    }

    MouseArea {
        id: hover
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: card.tool !== "" ? Qt.PointingHandCursor : Qt.ArrowCursor
        onClicked: if (card.tool !== "") Shell.selectTab(card.tool)
    }
}
