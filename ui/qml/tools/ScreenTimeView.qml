import QtQuick
import Vantrelle.Shell

// Today's screen time by application and by category, what is in front, and the session figures.
Item {
    id: view

    Column {
        id: summary
        anchors { left: parent.left; top: parent.top; leftMargin: 8 }
        width: 190
        spacing: 4
        Text { text: "Today"; color: Theme.secondaryLabel; font.pixelSize: 11 }
        Text { text: ScreenTime.total; color: Theme.label; font.pixelSize: 26; font.weight: Font.Bold }
        Text { text: ScreenTime.current !== "" ? "Now: " + ScreenTime.current : "Away"
               color: Theme.blue; font.pixelSize: 12 }
        Item { width: 1; height: 8 }
        Text { text: "Average session " + ScreenTime.averageSession; color: Theme.secondaryLabel; font.pixelSize: 11 }
        Text { text: "Longest session " + ScreenTime.longestSession; color: Theme.secondaryLabel; font.pixelSize: 11 }
        Item { width: 1; height: 10 }
        Repeater {
            model: ScreenTime.categories
            Column {
                required property string name
                required property string duration
                required property real fraction
                spacing: 2
                width: summary.width
                Row {
                    spacing: 6
                    Text { text: name; color: Theme.label; font.pixelSize: 11; width: 110 }
                    Text { text: duration; color: Theme.secondaryLabel; font.pixelSize: 11 }
                }
                Rectangle { width: summary.width * Math.max(0.02, fraction); height: 4; radius: 2; color: Theme.purple }
            }
        }
    }

    ListView {
        anchors { left: summary.right; right: parent.right; top: parent.top; bottom: parent.bottom
                  leftMargin: 18; rightMargin: 8 }
        clip: true
        spacing: 5
        model: ScreenTime.apps
        delegate: Item {
            id: app
            required property string name
            required property string category
            required property string duration
            required property real fraction
            width: ListView.view.width
            height: 30
            Text { id: appName; text: app.name; color: Theme.label; font.pixelSize: 12; width: 170; elide: Text.ElideRight }
            Text { anchors.left: appName.right; text: app.category; color: Theme.secondaryLabel; font.pixelSize: 10
                   width: 90 }
            Text { anchors.right: parent.right; text: app.duration; color: Theme.label; font.pixelSize: 12 }
            Rectangle {
                anchors { left: parent.left; bottom: parent.bottom; bottomMargin: 4 }
                width: (parent.width - 70) * Math.max(0.01, app.fraction)
                height: 4
                radius: 2
                color: Theme.blue
            }
        }
    }
    Text {
        anchors.centerIn: parent
        visible: ScreenTime.apps.count === 0
        text: "Nothing counted yet today"
        color: Theme.secondaryLabel
        font.pixelSize: 13
    }
}
