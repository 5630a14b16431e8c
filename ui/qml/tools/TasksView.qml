import QtQuick
import Vantrelle.Shell

// The to-do list: type and press Return to add, click the circle to tick, the cross to delete.
Item {
    id: view
    Component.onCompleted: field.forceActiveFocus()

    Rectangle {
        id: inputBox
        anchors { left: parent.left; right: parent.right; top: parent.top; leftMargin: 8; rightMargin: 8 }
        height: 44
        radius: 14
        color: Theme.surface
        border.color: field.activeFocus ? Qt.rgba(1, 1, 1, 0.18) : "transparent"

        TextInput {
            id: field
            anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter
                      leftMargin: 16; rightMargin: 16 }
            color: Theme.label
            font.pixelSize: 15
            clip: true
            selectByMouse: true
            function addTyped() { if (Tasks.add(text)) text = "" }
            Keys.onReturnPressed: addTyped()
            Keys.onEnterPressed: addTyped()
            Text {
                visible: field.text.length === 0
                text: "Add a task and press Return"
                color: Theme.secondaryLabel
                font.pixelSize: 15
                anchors.verticalCenter: parent.verticalCenter
            }
        }
    }

    component TaskRow: Rectangle {
        id: row
        required property string taskId
        required property string title
        required property bool isDone
        width: ListView.view ? ListView.view.width : 0
        height: 32
        radius: 8
        color: rowHover.containsMouse ? Qt.rgba(1, 1, 1, 0.05) : "transparent"
        MouseArea { id: rowHover; anchors.fill: parent; hoverEnabled: true }
        // An empty ring while open, a filled tick once done.
        Item {
            id: tick
            anchors { left: parent.left; leftMargin: 8; verticalCenter: parent.verticalCenter }
            width: 18; height: 18
            Rectangle {
                anchors.centerIn: parent
                visible: !row.isDone
                width: 15; height: 15; radius: 7.5
                color: "transparent"
                border.color: Theme.secondaryLabel
                border.width: 1.5
            }
            Icon {
                anchors.centerIn: parent
                visible: row.isDone
                glyph: Shell.glyph("checkmark.circle.fill")
                size: 18
                color: Theme.positive
            }
            MouseArea {
                anchors.fill: parent
                anchors.margins: -4
                cursorShape: Qt.PointingHandCursor
                onClicked: Tasks.toggle(row.taskId)
            }
        }
        Text {
            anchors { left: tick.right; right: remove.left; leftMargin: 10; rightMargin: 8
                      verticalCenter: parent.verticalCenter }
            text: row.title
            color: row.isDone ? Theme.secondaryLabel : Theme.label
            font.pixelSize: 14
            font.strikeout: row.isDone
            elide: Text.ElideRight
        }
        Text {
            id: remove
            anchors { right: parent.right; rightMargin: 10; verticalCenter: parent.verticalCenter }
            visible: rowHover.containsMouse || removeArea.containsMouse
            text: "Delete"
            color: removeArea.containsMouse ? Theme.negative : Theme.secondaryLabel
            font.pixelSize: 11
            MouseArea {
                id: removeArea
                anchors.fill: parent
                anchors.margins: -4
                hoverEnabled: true
                cursorShape: Qt.PointingHandCursor
                onClicked: Tasks.remove(row.taskId)
            }
        }
    }

    Flickable {
        id: lists
        anchors { left: parent.left; right: parent.right; top: inputBox.bottom; bottom: parent.bottom
                  topMargin: 10; leftMargin: 8; rightMargin: 8 }
        clip: true
        contentWidth: width
        contentHeight: content.implicitHeight
        Column {
            id: content
            width: lists.width
            spacing: 4
            ListView {
                width: parent.width
                height: contentHeight
                interactive: false
                model: Tasks.openTasks
                delegate: TaskRow {}
            }
            Text {
                visible: Tasks.openCount === 0
                text: Tasks.doneCount > 0 ? "All done." : "Nothing to do yet."
                color: Theme.secondaryLabel
                font.pixelSize: 12
                leftPadding: 10
            }
            Row {
                visible: Tasks.doneCount > 0
                width: parent.width
                height: 26
                Text {
                    width: parent.width - clearButton.width
                    anchors.verticalCenter: parent.verticalCenter
                    leftPadding: 10
                    text: "Done · " + Tasks.doneCount
                    color: Theme.secondaryLabel
                    font.pixelSize: 11
                    font.weight: Font.DemiBold
                }
                Text {
                    id: clearButton
                    anchors.verticalCenter: parent.verticalCenter
                    rightPadding: 10
                    text: "Clear done"
                    color: clearHover.containsMouse ? Theme.label : Theme.blue
                    font.pixelSize: 11
                    MouseArea {
                        id: clearHover
                        anchors.fill: parent
                        hoverEnabled: true
                        cursorShape: Qt.PointingHandCursor
                        onClicked: Tasks.clearDone()
                    }
                }
            }
            ListView {
                width: parent.width
                height: contentHeight
                interactive: false
                model: Tasks.doneTasks
                delegate: TaskRow {}
            }
        }
    }
}
