import QtQuick
import Vantrelle.Shell

// The tray icons of running programs: those the notch hides first, then the others. A click opens the
// icon's program once the panel has closed. Scans run only while this view is shown.
Item {
    id: view
    property bool shownNow: Shell.expanded
    onShownNowChanged: MenuBar.setShown(shownNow)
    Component.onCompleted: MenuBar.setShown(shownNow)
    Component.onDestruction: MenuBar.setShown(false)

    // No watcher: nothing can list tray icons here.
    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width - 40, 420)
        spacing: 8
        visible: !MenuBar.hasWatcher
        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: MenuBar.noWatcher
            color: Theme.label
            font.pixelSize: 15
            font.weight: Font.DemiBold
        }
        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            text: MenuBar.noWatcherDetail
            color: Theme.secondaryLabel
            font.pixelSize: 12
        }
        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: again.implicitWidth + 24
            height: 26
            radius: 13
            color: Theme.surfaceStrong
            Text { id: again; anchors.centerIn: parent; text: MenuBar.checkAgain; color: Theme.label; font.pixelSize: 12 }
            MouseArea { anchors.fill: parent; cursorShape: Qt.PointingHandCursor; onClicked: MenuBar.requestAccess() }
        }
    }

    Column {
        anchors.centerIn: parent
        spacing: 4
        visible: MenuBar.hasWatcher && MenuBar.hidden.count === 0 && MenuBar.visible.count === 0
        Text { anchors.horizontalCenter: parent.horizontalCenter; text: MenuBar.noIcons; color: Theme.label; font.pixelSize: 14 }
        Text { anchors.horizontalCenter: parent.horizontalCenter; text: MenuBar.noIconsDetail; color: Theme.secondaryLabel; font.pixelSize: 12 }
    }

    Flickable {
        anchors { fill: parent; margins: 8 }
        visible: MenuBar.hasWatcher && (MenuBar.hidden.count > 0 || MenuBar.visible.count > 0)
        contentHeight: sections.height
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        Column {
            id: sections
            width: parent.width
            spacing: 6
            Text {
                visible: MenuBar.status !== ""
                width: parent.width
                wrapMode: Text.WordWrap
                text: MenuBar.status
                color: Theme.orange
                font.pixelSize: 12
            }
            Text { text: MenuBar.hiddenHeading; color: Theme.secondaryLabel; font.pixelSize: 11; font.weight: Font.DemiBold }
            Text {
                visible: MenuBar.hidden.count === 0
                text: MenuBar.nothingHidden
                color: Theme.secondaryLabel
                font.pixelSize: 12
            }
            Flow {
                width: parent.width
                spacing: 6
                Repeater { model: MenuBar.hidden; delegate: iconChip }
            }
            Item { width: 1; height: 4 }
            Text {
                visible: MenuBar.visible.count > 0
                text: MenuBar.visibleHeading
                color: Theme.secondaryLabel
                font.pixelSize: 11
                font.weight: Font.DemiBold
            }
            Flow {
                width: parent.width
                spacing: 6
                Repeater { model: MenuBar.visible; delegate: iconChip }
            }
        }
    }

    Component {
        id: iconChip
        Rectangle {
            id: chip
            required property string raw
            required property string title
            required property string detail
            required property string icon
            width: Math.min(label.implicitWidth + picture.width + 30, 220)
            height: 30
            radius: 10
            color: press.containsMouse ? Theme.surfaceStrong : Theme.surface
            Image {
                id: picture
                anchors { verticalCenter: parent.verticalCenter; left: parent.left; leftMargin: 10 }
                width: MenuBar.iconSide
                height: MenuBar.iconSide
                sourceSize: Qt.size(MenuBar.iconSide, MenuBar.iconSide)
                source: chip.icon
                fillMode: Image.PreserveAspectFit
                smooth: true
            }
            Text {
                id: label
                anchors { verticalCenter: parent.verticalCenter; left: picture.right; right: parent.right; leftMargin: 6; rightMargin: 12 }
                text: chip.title
                elide: Text.ElideRight
                color: Theme.label
                font.pixelSize: 12
            }
            MouseArea {
                id: press
                anchors.fill: parent
                hoverEnabled: true
                cursorShape: Qt.PointingHandCursor
                onClicked: MenuBar.open(chip.raw)
            }
        }
    }
}
