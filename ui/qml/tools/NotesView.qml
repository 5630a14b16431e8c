import QtQuick
import Vantrelle.Shell

// Plain-text notes: the list on the left, the open note on the right. Typing saves by itself.
Item {
    id: view
    // Opening the panel picks a note to edit; closing it drops the notes left empty.
    property bool shownNow: Shell.expanded
    onShownNowChanged: shownNow ? Notes.open() : Notes.close()
    Component.onCompleted: {
        if (shownNow) Notes.open()
        editor.forceActiveFocus()
    }
    Component.onDestruction: Notes.close()

    Rectangle {
        id: sidebar
        anchors { left: parent.left; top: parent.top; bottom: parent.bottom; leftMargin: 8 }
        width: Math.round(parent.width * 0.32)
        radius: 14
        color: Theme.surface

        Row {
            id: listHeader
            anchors { left: parent.left; right: parent.right; top: parent.top; margins: 10 }
            height: 22
            Text {
                width: parent.width - newButton.width
                anchors.verticalCenter: parent.verticalCenter
                text: Notes.filledCount === 1 ? "1 note" : Notes.filledCount + " notes"
                color: Theme.secondaryLabel
                font.pixelSize: 11
            }
            Rectangle {
                id: newButton
                width: 22; height: 22; radius: 11
                color: newHover.containsMouse ? "#3A3A3C" : Theme.surfaceStrong
                Text { anchors.centerIn: parent; text: "+"; color: Theme.label; font.pixelSize: 15 }
                MouseArea {
                    id: newHover
                    anchors.fill: parent
                    hoverEnabled: true
                    cursorShape: Qt.PointingHandCursor
                    onClicked: { Notes.newNote(); editor.forceActiveFocus() }
                }
            }
        }

        ListView {
            id: list
            anchors { left: parent.left; right: parent.right; top: listHeader.bottom; bottom: parent.bottom
                      margins: 6; topMargin: 8 }
            clip: true
            spacing: 2
            model: Notes.notes
            delegate: Rectangle {
                id: row
                required property string noteId
                required property string title
                required property string preview
                required property string changed
                required property bool selected
                width: list.width
                height: 42
                radius: 8
                color: row.selected ? Qt.rgba(1, 1, 1, 0.10) : rowHover.containsMouse ? Qt.rgba(1, 1, 1, 0.05) : "transparent"
                Column {
                    anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter
                              leftMargin: 10; rightMargin: 10 }
                    spacing: 2
                    Row {
                        width: parent.width
                        Text {
                            width: parent.width - stamp.width
                            text: row.title
                            color: Theme.label
                            font.pixelSize: 13
                            font.weight: Font.DemiBold
                            elide: Text.ElideRight
                        }
                        Text { id: stamp; text: row.changed; color: Theme.secondaryLabel; font.pixelSize: 10 }
                    }
                    Text {
                        width: parent.width
                        text: row.preview
                        color: Theme.secondaryLabel
                        font.pixelSize: 11
                        elide: Text.ElideRight
                    }
                }
                MouseArea {
                    id: rowHover
                    anchors.fill: parent
                    hoverEnabled: true
                    cursorShape: Qt.PointingHandCursor
                    onClicked: { Notes.select(row.noteId); editor.forceActiveFocus() }
                }
            }
        }
    }

    Rectangle {
        id: page
        anchors { left: sidebar.right; right: parent.right; top: parent.top; bottom: parent.bottom
                  leftMargin: 10; rightMargin: 8 }
        radius: 14
        color: Theme.surface
        border.color: editor.activeFocus ? Qt.rgba(1, 1, 1, 0.18) : "transparent"

        Flickable {
            id: scroller
            anchors { left: parent.left; right: parent.right; top: parent.top; bottom: footer.top; margins: 14 }
            clip: true
            contentWidth: width
            contentHeight: editor.implicitHeight
            function keepCursorInView(rect) {
                if (rect.y < contentY) contentY = rect.y
                else if (rect.y + rect.height > contentY + height) contentY = rect.y + rect.height - height
            }
            TextEdit {
                id: editor
                width: scroller.width
                text: Notes.text
                // Only typing goes back to the store: opening another note (or none) sets the text too.
                onTextChanged: if (text !== Notes.text) Notes.text = text
                onCursorRectangleChanged: scroller.keepCursorInView(cursorRectangle)
                enabled: Notes.selectedId !== ""
                textFormat: TextEdit.PlainText
                wrapMode: TextEdit.Wrap
                selectByMouse: true
                color: Theme.label
                font.pixelSize: 14
                Text {
                    visible: editor.text.length === 0
                    text: "The first line becomes the title."
                    color: Theme.secondaryLabel
                    font.pixelSize: 14
                }
            }
        }

        Row {
            id: footer
            anchors { left: parent.left; right: parent.right; bottom: parent.bottom; margins: 10 }
            height: 22
            Text {
                width: parent.width - deleteButton.width
                anchors.verticalCenter: parent.verticalCenter
                text: Notes.savedLabel
                color: Theme.secondaryLabel
                font.pixelSize: 10
            }
            Rectangle {
                id: deleteButton
                visible: Notes.selectedId !== ""
                width: deleteLabel.implicitWidth + 16; height: 22; radius: 11
                color: deleteHover.containsMouse ? "#3A3A3C" : Theme.surfaceStrong
                Text { id: deleteLabel; anchors.centerIn: parent; text: "Delete"; color: Theme.secondaryLabel; font.pixelSize: 11 }
                MouseArea {
                    id: deleteHover
                    anchors.fill: parent
                    hoverEnabled: true
                    cursorShape: Qt.PointingHandCursor
                    onClicked: Notes.remove(Notes.selectedId)
                }
            }
        }
    }
}
