import QtQuick
import Vantrelle.Shell

// A thin ring filled clockwise from the top.
Canvas {
    property real progress: 0
    property color tint: Theme.label
    property real lineWidth: 2
    width: 14
    height: 14
    onProgressChanged: requestPaint()
    onTintChanged: requestPaint()
    onPaint: {
        var ctx = getContext("2d")
        ctx.reset()
        var r = width / 2 - lineWidth * 0.75
        ctx.lineWidth = lineWidth
        ctx.strokeStyle = Qt.rgba(1, 1, 1, 0.25)
        ctx.beginPath(); ctx.arc(width / 2, height / 2, r, 0, 2 * Math.PI); ctx.stroke()
        ctx.strokeStyle = tint
        ctx.beginPath()
        ctx.arc(width / 2, height / 2, r, -Math.PI / 2, -Math.PI / 2 + 2 * Math.PI * Math.max(0, Math.min(1, progress)))
        ctx.stroke()
    }
}
