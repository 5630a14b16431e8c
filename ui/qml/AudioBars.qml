import QtQuick
import Vantrelle.Shell

// Three small level bars, moving while something plays.
Row {
    spacing: 2
    Repeater {
        model: 3
        Rectangle {
            width: 3
            radius: 1.5
            anchors.bottom: parent.bottom
            color: Theme.label
            height: 5
            SequentialAnimation on height {
                loops: Animation.Infinite
                running: visible
                NumberAnimation { to: 12 - index * 2; duration: 320 + index * 90; easing.type: Easing.InOutSine }
                NumberAnimation { to: 4; duration: 300 + index * 70; easing.type: Easing.InOutSine }
            }
        }
    }
}
