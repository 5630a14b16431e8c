import QtQuick
import QtQuick.Controls.Basic as C
import Vantrelle.Shell

// Help and feedback: the version, where the program keeps its files, the debug log, and a message to
// the people who make it.
Item {
    id: view

    Column {
        id: facts
        anchors { left: parent.left; top: parent.top; leftMargin: 8 }
        width: parent.width * 0.42
        spacing: 6
        Text { text: "Vantrelle " + Support.version; color: Theme.label; font.pixelSize: 15; font.weight: Font.DemiBold }
        Text { text: "Your files"; color: Theme.secondaryLabel; font.pixelSize: 11; topPadding: 4 }
        Repeater {
            model: Support.folders
            Rectangle {
                id: folder
                required property string raw
                required property string title
                required property string icon
                width: facts.width
                height: 30
                radius: 8
                color: folderMouse.containsMouse ? Qt.rgba(1, 1, 1, 0.08) : Qt.rgba(1, 1, 1, 0.04)
                Icon { id: folderIcon; anchors { left: parent.left; leftMargin: 8; verticalCenter: parent.verticalCenter }
                       glyph: folder.icon; size: 14; color: Theme.secondaryLabel }
                Text {
                    anchors { left: folderIcon.right; leftMargin: 8; right: openText.left; rightMargin: 8; verticalCenter: parent.verticalCenter }
                    text: folder.title + "  " + folder.raw
                    color: Theme.label
                    font.pixelSize: 12
                    elide: Text.ElideMiddle
                }
                Text { id: openText; anchors { right: parent.right; rightMargin: 10; verticalCenter: parent.verticalCenter }
                       text: "Open"; color: Theme.blue; font.pixelSize: 12 }
                MouseArea { id: folderMouse; anchors.fill: parent; hoverEnabled: true; cursorShape: Qt.PointingHandCursor
                            onClicked: Support.openFolder(folder.raw) }
            }
        }
        Text {
            visible: Support.debugLog !== ""
            text: "Open debug log"
            color: Theme.blue
            font.pixelSize: 12
            topPadding: 4
            MouseArea { anchors.fill: parent; cursorShape: Qt.PointingHandCursor; onClicked: Support.openDebugLog() }
        }
    }

    Column {
        anchors { left: facts.right; leftMargin: 20; right: parent.right; rightMargin: 8; top: parent.top; bottom: parent.bottom }
        spacing: 8
        Text { text: "Write to " + Support.address; color: Theme.secondaryLabel; font.pixelSize: 11 }
        C.TextField {
            id: subject
            width: parent.width
            placeholderText: "Subject"
        }
        C.TextArea {
            id: message
            width: parent.width
            height: Math.max(60, parent.height - subject.height - sendRow.height - 40)
            placeholderText: "What happened, or what would help?"
            wrapMode: TextEdit.Wrap
        }
        Row {
            id: sendRow
            spacing: 10
            C.Button {
                text: "Compose in Mail"
                enabled: message.text.length > 0 || subject.text.length > 0
                onClicked: Support.sendMail(subject.text, message.text)
            }
            Text { anchors.verticalCenter: parent.verticalCenter; text: Support.status; color: Theme.secondaryLabel
                   font.pixelSize: 11; width: 260; wrapMode: Text.Wrap }
        }
    }
}
