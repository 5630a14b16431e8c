import QtQuick
import QtQuick.Controls.Basic as C
import Vantrelle.Shell

// The row of enabled tools, with a highlight that slides to the selected one.
Item {
    id: rail
    height: Shell.railHeight
    width: tools.width + 16

    Rectangle {
        id: highlight
        property Item target: tools.children[Math.max(0, rail.selectedIndex)] || null
        visible: rail.selectedIndex >= 0 && target !== null
        x: target ? tools.x + target.x - 4 : 0
        y: (rail.height - height) / 2
        width: 40
        height: 40
        radius: 12
        color: Qt.rgba(1, 1, 1, 0.12)
        Behavior on x { NumberAnimation { duration: Theme.snappyDuration; easing.type: Easing.OutBack
                                          easing.overshoot: Theme.snappyOvershoot } }
    }

    property int selectedIndex: Shell.tabIndex

    Row {
        id: tools
        anchors.centerIn: parent
        spacing: 8
        Repeater {
            model: Shell.tabs
            Item {
                id: item
                required property string raw
                required property string icon
                required property color tint
                required property string title
                width: 32
                height: 32
                ToolGlyph {
                    anchors.centerIn: parent
                    glyph: item.icon
                    tint: item.tint
                    size: 28
                }
                MouseArea {
                    id: itemMouse
                    anchors.fill: parent
                    hoverEnabled: true
                    cursorShape: Qt.PointingHandCursor
                    onClicked: Shell.selectTab(item.raw)
                }
                // Above the icon, over the panel: around the dock the window is cut away without a
                // compositor.
                C.ToolTip {
                    visible: itemMouse.containsMouse
                    text: item.title
                    delay: 500
                    y: -height - 22
                    x: (item.width - width) / 2
                }
            }
        }
    }
}
