import QtQuick
import Vantrelle.Shell

// The tasks tile: the first open tasks and how many there are.
Item {
    clip: true
    Column {
        anchors { left: parent.left; right: parent.right; top: parent.top }
        spacing: 1
        Repeater {
            model: Tasks.nextTasks
            Row {
                id: task
                required property string title
                width: parent.width
                spacing: 6
                Rectangle {
                    anchors.verticalCenter: parent.verticalCenter
                    width: 9; height: 9; radius: 4.5
                    color: "transparent"
                    border.color: Theme.secondaryLabel
                    border.width: 1
                }
                Text { width: parent.width - 15; text: task.title; color: Theme.label; font.pixelSize: 10
                       elide: Text.ElideRight }
            }
        }
    }
    Text {
        anchors.bottom: parent.bottom
        text: Tasks.openCount === 0 ? (Tasks.doneCount > 0 ? "All done" : "No tasks yet")
                                    : Tasks.openCount + " open" + (Tasks.doneCount > 0 ? " · " + Tasks.doneCount + " done" : "")
        color: Theme.secondaryLabel
        font.pixelSize: 10
    }
}
