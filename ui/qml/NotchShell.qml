import QtQuick
import Vantrelle.Shell

// The one black shape under the notch: square top corners, rounded bottom ones.
Item {
    id: shell
    property real cornerRadius: 14
    property bool elevated: false
    property bool glass: false
    property bool light: false
    property bool outlined: false
    default property alias content: body.data

    // The soft shadow of the open panel, 14 points down, fading over 28: layered rings of black.
    // Without a compositor the window is cut to the shell, so it simply never shows.
    Repeater {
        model: shell.elevated ? 7 : 0
        Rectangle {
            readonly property real spread: (index + 1) * 4
            x: -spread
            y: 14 - spread
            width: shell.width + 2 * spread
            height: shell.height + 2 * spread
            radius: shell.cornerRadius + spread
            color: "black"
            opacity: 0.55 / 7
        }
    }
    Rectangle {
        id: fill
        anchors.fill: parent
        radius: shell.cornerRadius
        color: shell.glass ? (shell.light ? Theme.glassLight : Theme.glassDark) : "black"
    }
    // Squares off the top corners.
    Rectangle {
        anchors { left: parent.left; right: parent.right; top: parent.top }
        height: Math.min(shell.cornerRadius, parent.height / 2)
        color: fill.color
    }
    // A drawn notch on a dark desktop: a faint glow around it (seen where a compositor blends it) and a
    // hairline along its edge. Its top edge and top corners sit above the window, so only the straight
    // sides and the rounded bottom show.
    Repeater {
        model: shell.outlined ? 3 : 0
        Rectangle {
            readonly property real spread: (index + 1) * 2
            x: -spread
            y: -spread
            width: shell.width + 2 * spread
            height: shell.height + 2 * spread
            radius: shell.cornerRadius + spread
            color: "transparent"
            border.width: 2
            border.color: Qt.rgba(1, 1, 1, 0.10 - index * 0.03)
        }
    }
    Rectangle {
        visible: shell.outlined
        x: 0
        y: -shell.cornerRadius - 1
        width: shell.width
        height: shell.height + shell.cornerRadius + 1
        radius: shell.cornerRadius
        color: "transparent"
        border.width: 1
        border.color: Qt.rgba(1, 1, 1, 0.35)
        z: 1
    }
    Item {
        id: body
        anchors.fill: parent
        clip: true
    }
}
