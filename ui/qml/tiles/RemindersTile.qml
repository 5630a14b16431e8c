import QtQuick
import Vantrelle.Shell

// The Reminders tile: how many are left today and the first of them.
Column {
    spacing: 2
    Component.onCompleted: Reminders.refresh()
    onVisibleChanged: if (visible) Reminders.refresh()
    Text { text: Reminders.openCount; color: Theme.label; font.pixelSize: 22; font.weight: Font.Bold }
    Text { text: "open today"; color: Theme.orange; font.pixelSize: 11 }
    Repeater {
        model: Reminders.items
        delegate: Text {
            required property int index
            required property string title
            required property bool done
            visible: !done && index < 2
            width: parent.width
            text: "• " + title
            elide: Text.ElideRight
            color: Theme.secondaryLabel
            font.pixelSize: 10
        }
    }
}
