import QtQuick
import Vantrelle.Shell

// The recap of last week, this week, last month or this month, and "Save as image".
Item {
    id: view
    Component.onCompleted: Wrapped.refresh()
    // The margin of its own window; in the panel the panel gives one.
    property real inset: 0

    Row {
        id: periods
        anchors { left: parent.left; top: parent.top; leftMargin: 8 + view.inset; topMargin: view.inset }
        spacing: 6
        Repeater {
            model: Wrapped.periods
            Rectangle {
                required property int index
                required property string modelData
                width: label.implicitWidth + 20; height: 24; radius: 12
                color: Wrapped.period === index ? Theme.purple : Theme.surfaceStrong
                Text { id: label; anchors.centerIn: parent; text: modelData; color: Theme.label; font.pixelSize: 11 }
                MouseArea { anchors.fill: parent; cursorShape: Qt.PointingHandCursor; onClicked: Wrapped.period = index }
            }
        }
    }
    Row {
        anchors { right: parent.right; top: parent.top; rightMargin: 8 + view.inset; topMargin: view.inset }
        spacing: 8
        Text { anchors.verticalCenter: parent.verticalCenter; text: Wrapped.savedTo !== "" ? "Saved" : ""
               color: Theme.positive; font.pixelSize: 11 }
        Rectangle {
            width: 110; height: 24; radius: 12
            color: saveHover.containsMouse ? "#3A3A3C" : Theme.surfaceStrong
            Text { anchors.centerIn: parent; text: "Save as image"; color: Theme.label; font.pixelSize: 11 }
            MouseArea { id: saveHover; anchors.fill: parent; hoverEnabled: true; cursorShape: Qt.PointingHandCursor
                        onClicked: Wrapped.saveImage() }
        }
    }

    Column {
        id: heading
        anchors { left: parent.left; top: periods.bottom; leftMargin: 8 + view.inset; topMargin: 12 }
        spacing: 2
        Text { text: Wrapped.title; color: Theme.label; font.pixelSize: 24; font.weight: Font.Bold }
        Text { text: Wrapped.range + (Wrapped.partial ? " · tracking began during this period" : "")
               color: Theme.secondaryLabel; font.pixelSize: 11 }
        Item { width: 1; height: 6 }
        Text { text: Wrapped.headline; color: Theme.gold; font.pixelSize: 15; font.weight: Font.DemiBold }
    }

    Grid {
        anchors { left: parent.left; right: parent.right; top: heading.bottom; leftMargin: 8 + view.inset; topMargin: 14 }
        columns: 3
        columnSpacing: 28
        rowSpacing: 10
        Repeater {
            model: [
                { value: Wrapped.focusHours, caption: "focused in " + Wrapped.focusBlocks + " blocks" },
                { value: Wrapped.meetings, caption: "meetings joined" },
                { value: Wrapped.tokens, caption: "agent tokens" },
                { value: Wrapped.cursor, caption: "cursor distance" },
                { value: Wrapped.topApp, caption: "top app" },
                { value: Wrapped.bestDay, caption: "most focused day" }
            ]
            Column {
                required property var modelData
                width: 200
                Text { text: modelData.value; color: Theme.label; font.pixelSize: 18; font.weight: Font.Bold
                       elide: Text.ElideRight; width: parent.width }
                Text { text: modelData.caption; color: Theme.secondaryLabel; font.pixelSize: 11 }
            }
        }
    }
}
