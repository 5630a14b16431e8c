import QtQuick
import Vantrelle.Shell

// The quick toggles tile: one round button per chosen toggle this desktop can do; a switch that is on
// is lit. States are read again whenever the panel opens.
Item {
    property bool shownNow: Shell.expanded
    onShownNowChanged: Toggles.setShown(shownNow)
    Component.onCompleted: Toggles.setShown(shownNow)
    Component.onDestruction: if (shownNow) Toggles.setShown(false)

    Text {
        anchors.fill: parent
        visible: Toggles.toggles.count === 0
        text: "None of the chosen toggles works on this desktop."
        color: Theme.secondaryLabel
        font.pixelSize: 10
        wrapMode: Text.WordWrap
    }
    Flow {
        anchors.fill: parent
        spacing: 6
        Repeater {
            model: Toggles.toggles
            Rectangle {
                id: button
                required property string raw
                required property string title
                required property string icon
                required property bool chosen
                width: 28
                height: 28
                radius: 14
                color: chosen ? Theme.teal : (press.containsMouse ? Theme.surfaceStrong : "#2c2c2e")
                Icon {
                    anchors.centerIn: parent
                    glyph: button.icon
                    size: 15
                    color: button.chosen ? "black" : Theme.label
                }
                MouseArea {
                    id: press
                    anchors.fill: parent
                    hoverEnabled: true
                    cursorShape: Qt.PointingHandCursor
                    onClicked: Toggles.perform(button.raw)
                }
                Text {
                    visible: press.containsMouse
                    anchors { horizontalCenter: parent.horizontalCenter; top: parent.bottom; topMargin: 2 }
                    z: 2
                    text: button.title
                    color: Theme.label
                    font.pixelSize: 9
                }
            }
        }
    }
}
