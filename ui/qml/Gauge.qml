import QtQuick
import Vantrelle.Shell

// A ring that fills clockwise from the top, with a figure in the middle.
Item {
    id: gauge
    property real progress: 0
    property color tint: Theme.purple
    property string label
    property string caption
    width: 120
    height: 120

    Canvas {
        id: ring
        anchors.fill: parent
        property real shown: gauge.progress
        Behavior on shown { NumberAnimation { duration: Theme.contentDuration; easing.type: Easing.OutCubic } }
        onShownChanged: requestPaint()
        onPaint: {
            var ctx = getContext("2d")
            ctx.reset()
            var r = width / 2 - 7
            ctx.lineWidth = 9
            ctx.lineCap = "round"
            ctx.strokeStyle = Qt.rgba(1, 1, 1, 0.1)
            ctx.beginPath(); ctx.arc(width / 2, height / 2, r, 0, 2 * Math.PI); ctx.stroke()
            if (shown > 0) {
                ctx.strokeStyle = gauge.tint
                ctx.beginPath()
                ctx.arc(width / 2, height / 2, r, -Math.PI / 2, -Math.PI / 2 + 2 * Math.PI * Math.min(1, shown))
                ctx.stroke()
            }
        }
    }
    Column {
        anchors.centerIn: parent
        Text { anchors.horizontalCenter: parent.horizontalCenter; text: gauge.label; color: Theme.label
               font.pixelSize: 20; font.weight: Font.Bold }
        Text { anchors.horizontalCenter: parent.horizontalCenter; text: gauge.caption; color: Theme.secondaryLabel
               font.pixelSize: 10 }
    }
}
