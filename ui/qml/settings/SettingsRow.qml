import QtQuick
import Vantrelle.Shell

// One setting: what it is on the left, its control on the right, and an optional line of help below.
Item {
    id: row
    property string label
    property string help
    default property alias control: slot.data
    width: parent ? parent.width : 400
    height: Math.max(slot.childrenRect.height, texts.height) + 12

    Column {
        id: texts
        anchors { left: parent.left; right: slot.left; rightMargin: 12; verticalCenter: parent.verticalCenter }
        Text { text: row.label; color: Theme.label; font.pixelSize: 13; width: parent.width; wrapMode: Text.Wrap }
        Text {
            visible: row.help !== ""
            text: row.help
            color: Theme.secondaryLabel
            font.pixelSize: 11
            width: parent.width
            wrapMode: Text.Wrap
        }
    }
    Item {
        id: slot
        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        width: childrenRect.width
        height: childrenRect.height
    }
}
