import QtQuick
import Vantrelle.Shell

// One Dashboard tile.
Rectangle {
    id: card
    required property string raw
    required property string title
    required property string icon
    required property string subtitle
    required property string tool
    required property color tint
    required property string view
    radius: 16
    color: hover.containsMouse && card.tool !== "" ? "#262628" : Theme.surface

    // Declared first, so beneath the content: a tile's own buttons (Join, play, a launcher icon, Share)
    // take their clicks; the rest of the card opens the tool.
    MouseArea {
        id: hover
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: card.tool !== "" ? Qt.PointingHandCursor : Qt.ArrowCursor
        onClicked: if (card.tool !== "") Shell.selectTab(card.tool)
    }

    Row {
        id: heading
        anchors { left: parent.left; top: parent.top; margins: 12 }
        spacing: 6
        Icon { glyph: card.icon; size: 14; color: card.tint; anchors.verticalCenter: parent.verticalCenter }
        Text { text: card.title; color: Theme.label; font.pixelSize: 12; font.weight: Font.DemiBold }
    }

    // A live tile is its own component, registered by the composition root; the rest say what they hold.
    Item {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; top: heading.bottom; margins: 12 }
        Loader {
            anchors.fill: parent
            active: card.view !== ""
            source: card.view
        }
        Text {
            anchors.fill: parent
            visible: card.view === ""
            wrapMode: Text.WordWrap
            verticalAlignment: Text.AlignBottom
            text: card.subtitle
            color: Theme.secondaryLabel
            font.pixelSize: 11
        }
    }
}
