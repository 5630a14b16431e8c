import QtQuick
import Vantrelle.Shell

// The endless runner: a track scaled to the view, the runner, the obstacles and the score. Space or a
// click jumps (and starts, resumes or retries); the rules are the game's.
Item {
    id: view
    focus: true
    property bool shownNow: Shell.expanded
    onShownNowChanged: TavoRun.setViewShown(shownNow)
    Component.onCompleted: { TavoRun.setViewShown(shownNow); forceActiveFocus() }
    Component.onDestruction: TavoRun.setViewShown(false)
    Keys.onSpacePressed: (event) => { TavoRun.jump(); event.accepted = true }
    Keys.onUpPressed: (event) => { TavoRun.jump(); event.accepted = true }

    Row {
        id: scores
        anchors { right: parent.right; top: parent.top; rightMargin: 12 }
        spacing: 16
        Text { text: "Best " + TavoRun.best; color: Theme.secondaryLabel; font.pixelSize: 12 }
        Text { text: TavoRun.score; color: Theme.label; font.pixelSize: 14; font.bold: true }
    }

    Item {
        id: track
        anchors { left: parent.left; right: parent.right; top: scores.bottom; bottom: parent.bottom
                  margins: 12 }
        clip: true
        readonly property real unit: Math.min(width / TavoRun.worldWidth, height / TavoRun.worldHeight)
        readonly property real ground: height - 8

        Rectangle {
            x: 0; width: parent.width; height: 1
            y: track.ground
            color: Theme.secondaryLabel
            opacity: 0.5
        }
        Rectangle {
            id: runner
            x: TavoRun.runnerX * track.unit
            width: TavoRun.runnerWidth * track.unit
            height: TavoRun.runnerHeight * track.unit
            y: track.ground - (TavoRun.runnerY + TavoRun.runnerHeight) * track.unit
            radius: 4 * track.unit
            color: Theme.teal
        }
        Repeater {
            model: TavoRun.obstacles
            Rectangle {
                required property var modelData
                x: modelData.x * track.unit
                width: modelData.width * track.unit
                height: modelData.height * track.unit
                y: track.ground - height
                radius: 2
                color: Theme.orange
            }
        }
        Text {
            anchors.centerIn: parent
            visible: text.length > 0
            text: TavoRun.banner
            color: Theme.label
            font.pixelSize: 14
        }
        MouseArea {
            anchors.fill: parent
            onClicked: { view.forceActiveFocus(); TavoRun.jump() }
        }
    }
}
