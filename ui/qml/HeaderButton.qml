import QtQuick
import QtQuick.Controls.Basic as C
import Vantrelle.Shell

// A round 22-point button of the panel header.
Rectangle {
    id: button
    property string glyph
    property string help
    signal clicked()
    width: 22
    height: 22
    radius: 11
    color: hover.containsMouse ? "#3A3A3C" : Theme.surfaceStrong
    Icon { anchors.centerIn: parent; glyph: button.glyph; size: 13; color: Theme.secondaryLabel }
    MouseArea {
        id: hover
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: button.clicked()
    }
    // Below the button, inside the panel; the top edge belongs to the notch.
    C.ToolTip {
        visible: hover.containsMouse && button.help !== ""
        text: button.help
        delay: 500
        y: button.height + 6
        x: (button.width - width) / 2
    }

}
