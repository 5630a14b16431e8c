pragma Singleton
import QtQuick

// Colours, type and motion of the shell.
QtObject {
    readonly property color label: "#F5F5F7"
    readonly property color secondaryLabel: "#A1A1A6"
    readonly property color positive: "#34C759"
    readonly property color negative: "#FF453A"
    readonly property color blue: "#0A84FF"
    readonly property color orange: "#FF9F0A"
    readonly property color purple: "#BF5AF2"
    readonly property color teal: "#40C8E0"
    readonly property color gold: "#FFD60A"
    readonly property color surface: "#1C1C1E"
    readonly property color surfaceStrong: "#2C2C2E"
    readonly property string iconFont: "Material Icons"

    // Springs are given as (response, damping fraction). A spring settles in about 1.3 responses and
    // overshoots by exp(-pi z / sqrt(1 - z^2)); OutBack with a matching overshoot draws the same curve.
    function springDuration(response) { return Math.round(response * 1300) }
    function springOvershoot(damping) {
        var peak = Math.exp(-Math.PI * damping / Math.sqrt(1 - damping * damping))
        return 1.70158 * peak / 0.1
    }
    readonly property int morphDuration: springDuration(0.45)
    readonly property real morphOvershoot: springOvershoot(0.78)
    readonly property int snappyDuration: springDuration(0.28)
    readonly property real snappyOvershoot: springOvershoot(0.82)
    readonly property int contentDuration: springDuration(0.36)
    readonly property real contentOvershoot: springOvershoot(0.86)
    readonly property int bouncyDuration: springDuration(0.5)
    readonly property real bouncyOvershoot: springOvershoot(0.68)
}
