import QtQuick
import Vantrelle.Shell

// One row per target for its global shortcut. A click on a row's box listens for the next key press;
// Escape or a click elsewhere stops listening, the cross clears the shortcut.
Flickable {
    id: page
    contentHeight: rows.height
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    Component.onDestruction: Shortcuts.stopRecording()

    // Takes the keys while a row listens.
    Item {
        id: listener
        Keys.onPressed: (event) => { event.accepted = Shortcuts.keyPressed(event.key, event.modifiers) }
        onActiveFocusChanged: if (!activeFocus) Shortcuts.stopRecording()
    }

    Column {
        id: rows
        width: page.width
        Text {
            width: page.width
            text: "Inside the open panel, Escape closes it and Ctrl+, opens these settings."
            color: Theme.secondaryLabel
            font.pixelSize: 12
            wrapMode: Text.Wrap
            bottomPadding: 8
        }
        Repeater {
            model: Shortcuts.rows
            Item {
                id: row
                required property string target
                required property string title
                required property string display
                required property string note
                required property bool recording
                width: page.width
                height: 34
                Text {
                    anchors { left: parent.left; right: box.left; rightMargin: 8; verticalCenter: parent.verticalCenter }
                    text: row.title
                    color: Theme.label
                    font.pixelSize: 13
                    elide: Text.ElideRight
                }
                Rectangle {
                    id: box
                    objectName: "shortcut-" + row.target
                    anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                    width: 220; height: 24; radius: 6
                    color: Theme.surfaceStrong
                    border.width: row.recording ? 1 : 0
                    border.color: Theme.blue
                    Text {
                        anchors { left: parent.left; right: clear.left; leftMargin: 8; rightMargin: 4
                                  verticalCenter: parent.verticalCenter }
                        horizontalAlignment: Text.AlignHCenter
                        elide: Text.ElideRight
                        text: row.recording ? Shortcuts.message
                            : row.note !== "" ? row.display + " \u2014 " + row.note
                            : row.display !== "" ? row.display : Shortcuts.recordText
                        color: row.note !== "" && !row.recording ? Theme.orange
                            : row.display !== "" || row.recording ? Theme.label : Theme.secondaryLabel
                        font.pixelSize: 11
                    }
                    MouseArea {
                        anchors.fill: parent
                        onClicked: {
                            Shortcuts.startRecording(row.target)
                            listener.forceActiveFocus()
                        }
                    }
                    Text {
                        id: clear
                        anchors { right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
                        visible: row.display !== ""
                        width: visible ? implicitWidth : 0
                        text: "\u00d7"
                        color: Theme.secondaryLabel
                        font.pixelSize: 14
                        MouseArea { anchors.fill: parent; onClicked: Shortcuts.clear(row.target) }
                    }
                }
            }
        }
    }
}
