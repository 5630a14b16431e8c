import QtQuick
import Vantrelle.Shell

// One glyph of the icon font; `glyph` comes from Shell.glyph(symbol name).
Text {
    property string glyph
    property real size: 12
    text: glyph
    font.family: Theme.iconFont
    font.pixelSize: size
    color: Theme.label
    verticalAlignment: Text.AlignVCenter
    horizontalAlignment: Text.AlignHCenter
    renderType: Text.NativeRendering
}
