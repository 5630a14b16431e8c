import QtQuick
import Vantrelle.Shell

// One row per tool for its global shortcut. The recorder arrives with global shortcuts; until then the
// rows say so.
Flickable {
    id: page
    contentHeight: rows.height
    clip: true
    boundsBehavior: Flickable.StopAtBounds

    component ShortcutRow: Item {
        id: row
        property string title
        width: page.width
        height: 34
        Text { anchors.verticalCenter: parent.verticalCenter; text: row.title; color: Theme.label; font.pixelSize: 13 }
        Rectangle {
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            width: 200; height: 24; radius: 6
            color: Theme.surfaceStrong
            Text {
                anchors.centerIn: parent
                text: "arrives with global shortcuts"
                color: Theme.secondaryLabel
                font.pixelSize: 11
            }
        }
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
        ShortcutRow { title: "Open or close the notch" }
        Repeater {
            model: Settings.tools
            ShortcutRow {
                required property var model
                title: model.title
            }
        }
    }
}
