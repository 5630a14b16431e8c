import QtQuick
import Vantrelle.Shell

// The tasks tile: how many are open and the first of them.
Column {
    spacing: 4
    Text {
        text: Tasks.openCount === 0 ? "All clear" : Tasks.openCount + " open"
        color: Theme.label
        font.pixelSize: 18
        font.weight: Font.Bold
    }
    Repeater {
        model: Tasks.nextTasks
        Row {
            id: task
            required property string title
            width: parent.width
            spacing: 6
            Icon { glyph: Shell.glyph("checkmark.circle"); size: 11; color: Theme.secondaryLabel
                   anchors.verticalCenter: parent.verticalCenter }
            Text { width: parent.width - 17; text: task.title; color: Theme.label; font.pixelSize: 11
                   elide: Text.ElideRight }
        }
    }
}
