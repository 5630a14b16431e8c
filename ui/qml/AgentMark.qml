import QtQuick
import Vantrelle.Shell

// The mark drawn for agent activities; it breathes while the agent works.
Icon {
    property bool pulse: false
    glyph: Shell.glyph("agent")
    color: Theme.purple
    SequentialAnimation on opacity {
        running: pulse
        loops: Animation.Infinite
        NumberAnimation { to: 0.45; duration: 700; easing.type: Easing.InOutSine }
        NumberAnimation { to: 1.0; duration: 700; easing.type: Easing.InOutSine }
        onRunningChanged: if (!running) parent.opacity = 1
    }
}
