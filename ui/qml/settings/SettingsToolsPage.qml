import QtQuick
import Vantrelle.Shell

// Which tools the dock and the rail offer, in their order.
Item {
    Text {
        id: heading
        width: parent.width
        text: "Tools that are off leave the dock; their data stays."
        color: Theme.secondaryLabel
        font.pixelSize: 12
        wrapMode: Text.Wrap
    }
    Text {
        id: note
        anchors { top: heading.bottom; topMargin: 6 }
        width: parent.width
        visible: text !== ""
        text: Settings.toolNote
        color: Theme.orange
        font.pixelSize: 12
        wrapMode: Text.Wrap
    }
    ListView {
        anchors { top: note.visible ? note.bottom : heading.bottom; topMargin: 8; left: parent.left; right: parent.right
                  bottom: parent.bottom }
        clip: true
        model: Settings.tools
        boundsBehavior: Flickable.StopAtBounds
        delegate: Item {
            id: tool
            required property string raw
            required property string title
            required property string icon
            required property string detail
            required property color tint
            required property bool chosen
            width: ListView.view.width
            height: 44
            ToolGlyph { id: glyph; glyph: tool.icon; tint: tool.tint; size: 26; anchors.verticalCenter: parent.verticalCenter }
            Column {
                anchors { left: glyph.right; leftMargin: 10; right: toolSwitch.left; rightMargin: 10; verticalCenter: parent.verticalCenter }
                Text { text: tool.title; color: Theme.label; font.pixelSize: 13 }
                Text { text: tool.detail; color: Theme.secondaryLabel; font.pixelSize: 11; width: parent.width; elide: Text.ElideRight }
            }
            Switch {
                id: toolSwitch
                objectName: "tool-" + tool.raw
                anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                checked: tool.chosen
                onToggled: Settings.setToolEnabled(tool.raw, !checked)
            }
        }
    }
}
