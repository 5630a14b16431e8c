import QtQuick
import "."

// The one black shape under the notch: square top corners, rounded bottom ones.
Item {
    id: shell
    property real cornerRadius: 14
    property bool elevated: false
    property bool glass: false
    property bool light: false
    default property alias content: body.data

    Rectangle {
        id: fill
        anchors.fill: parent
        radius: shell.cornerRadius
        color: shell.glass ? (shell.light ? "#E6F2F2F7" : "#D91C1C1E") : "black"
    }
    // Squares off the top corners.
    Rectangle {
        anchors { left: parent.left; right: parent.right; top: parent.top }
        height: Math.min(shell.cornerRadius, parent.height / 2)
        color: fill.color
    }
    Item {
        id: body
        anchors.fill: parent
        clip: true
    }
}
