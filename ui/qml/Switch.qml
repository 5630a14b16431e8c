import QtQuick
import Vantrelle.Shell

// An on/off switch in the shell's style.
Rectangle {
    id: control
    property bool checked: false
    signal toggled()
    width: 34
    height: 20
    radius: 10
    color: checked ? Theme.positive : Theme.surfaceStrong
    Behavior on color { ColorAnimation { duration: 150 } }
    Rectangle {
        width: 16; height: 16; radius: 8
        y: 2
        x: control.checked ? control.width - width - 2 : 2
        color: "white"
        Behavior on x { NumberAnimation { duration: Theme.snappyDuration; easing.type: Easing.OutBack
                                          easing.overshoot: Theme.snappyOvershoot } }
    }
    MouseArea { anchors.fill: parent; cursorShape: Qt.PointingHandCursor; onClicked: control.toggled() }
}
