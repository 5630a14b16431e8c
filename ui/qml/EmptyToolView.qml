import QtQuick
import Vantrelle.Shell

// What a tool shows until it is built: its own name and what it will do, never invented data.
Item {
    property string title
    property string blurb
    property string glyph
    property color tint

    Column {
        anchors.centerIn: parent
        spacing: 10
        width: Math.min(parent.width - 80, 460)
        ToolGlyph { anchors.horizontalCenter: parent.horizontalCenter; glyph: parent.parent.glyph; tint: parent.parent.tint; size: 44 }
        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: title
            color: Theme.label
            font.pixelSize: 17
            font.weight: Font.DemiBold
        }
        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            text: blurb
            color: Theme.secondaryLabel
            font.pixelSize: 13
        }
        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: "Not available in this version yet."
            color: Theme.secondaryLabel
            opacity: 0.7
            font.pixelSize: 11
        }
    }
}
