import QtQuick
import Vantrelle.Shell

// A tool's icon in a rounded square tinted with the tool's colour.
Rectangle {
    property string glyph
    property color tint: Theme.label
    property real size: 28
    width: size
    height: size
    radius: size * 0.28
    color: Qt.rgba(tint.r, tint.g, tint.b, 0.22)
    Icon {
        anchors.centerIn: parent
        glyph: parent.glyph
        size: parent.size * 0.58
        color: parent.tint
    }
}
