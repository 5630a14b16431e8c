import QtQuick
import Vantrelle.Shell

// The Day Progress tile: time left in the workday, its bar, and today's cursor mileage with Share.
Column {
    id: tile
    spacing: 3
    property bool shownNow: Shell.expanded
    onShownNowChanged: DayProgress.setTileShown(shownNow)
    Component.onCompleted: DayProgress.setTileShown(shownNow)
    Component.onDestruction: DayProgress.setTileShown(false)

    Text {
        width: parent.width
        text: DayProgress.headline
        color: Theme.label
        font.pixelSize: 17
        font.weight: Font.Bold
        elide: Text.ElideRight
    }
    Rectangle {
        width: parent.width
        height: 6
        radius: 3
        color: Theme.surfaceStrong
        Rectangle {
            width: parent.width * Math.max(0, Math.min(1, DayProgress.progress))
            height: parent.height
            radius: 3
            color: Theme.orange
        }
    }
    Text {
        width: parent.width
        text: DayProgress.hours !== "" ? DayProgress.hours + " · " + DayProgress.percent : ""
        color: Theme.secondaryLabel
        font.pixelSize: 10
    }
    Item {
        width: parent.width
        height: share.height
        Text {
            anchors { left: parent.left; right: share.left; rightMargin: 6; verticalCenter: parent.verticalCenter }
            text: DayProgress.mileage
            color: Theme.teal
            font.pixelSize: 10
            elide: Text.ElideRight
        }
        Rectangle {
            id: share
            anchors.right: parent.right
            width: label.implicitWidth + 14
            height: label.implicitHeight + 6
            radius: height / 2
            color: shareArea.containsMouse ? Theme.surfaceStrong : "transparent"
            border.color: Theme.secondaryLabel
            border.width: 1
            Text {
                id: label
                anchors.centerIn: parent
                text: DayProgress.shareLabel
                color: Theme.label
                font.pixelSize: 10
            }
            MouseArea {
                id: shareArea
                anchors.fill: parent
                hoverEnabled: true
                cursorShape: Qt.PointingHandCursor
                onClicked: DayProgress.share()
            }
        }
    }
}
