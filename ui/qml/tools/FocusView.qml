import QtQuick
import Vantrelle.Shell

// The focus timer with its modes, the choice after a block, today's blocks, quick timers and the stopwatch.
Item {
    id: view

    // A rounded text button; `primary` fills it with the tint.
    component PillButton: Rectangle {
        id: pill
        property string label
        property bool primary: false
        property bool selected: false
        property color tint: Theme.orange
        property real padding: 24
        property real minWidth: 56
        property int fontSize: 12
        signal clicked()
        width: Math.max(minWidth, caption.implicitWidth + padding)
        height: 28
        radius: 14
        color: primary ? tint : (selected ? Qt.rgba(tint.r, tint.g, tint.b, 0.35)
                                          : (area.containsMouse ? "#3A3A3C" : Theme.surfaceStrong))
        Text {
            id: caption
            anchors.centerIn: parent
            text: pill.label
            color: pill.primary ? "black" : Theme.label
            font.pixelSize: pill.fontSize
            font.weight: Font.DemiBold
        }
        MouseArea {
            id: area
            anchors.fill: parent
            hoverEnabled: true
            cursorShape: Qt.PointingHandCursor
            onClicked: pill.clicked()
        }
    }

    // The focus timer.
    Column {
        id: timerColumn
        anchors { left: parent.left; top: parent.top; leftMargin: 8 }
        width: Math.max(350, modePicker.implicitWidth)
        spacing: 10

        Row {
            id: modePicker
            spacing: 4
            Repeater {
                model: Focus.modes
                delegate: PillButton {
                    required property var modelData
                    objectName: "mode-" + modelData.raw
                    label: modelData.title
                    height: 24
                    padding: 14
                    minWidth: 0
                    fontSize: 11
                    selected: Focus.mode === modelData.raw
                    onClicked: Focus.selectMode(modelData.raw)
                }
            }
        }

        Row {
            spacing: 18
            Item {
                width: 128
                height: 128
                ProgressRing {
                    anchors.fill: parent
                    progress: Focus.progress
                    lineWidth: 6
                    tint: Focus.inBreak ? Theme.teal : Theme.orange
                }
                Column {
                    anchors.centerIn: parent
                    Text {
                        anchors.horizontalCenter: parent.horizontalCenter
                        text: Focus.timeString
                        color: Theme.label
                        font.pixelSize: 30
                        font.weight: Font.Bold
                    }
                    Text {
                        anchors.horizontalCenter: parent.horizontalCenter
                        text: Focus.statusText
                        color: Theme.secondaryLabel
                        font.pixelSize: 11
                    }
                }
            }
            Column {
                anchors.verticalCenter: parent.verticalCenter
                spacing: 8
                PillButton {
                    objectName: "focusStart"
                    visible: !Focus.awaitingChoice
                    primary: true
                    label: Focus.status === "running" ? "Pause" : (Focus.status === "paused" ? "Resume" : "Start")
                    onClicked: Focus.startPause()
                }
                PillButton {
                    objectName: "focusStop"
                    visible: !Focus.awaitingChoice && Focus.status !== "idle"
                    label: "Stop"
                    onClicked: Focus.stop()
                }
                PillButton {
                    objectName: "focusStartQueued"
                    visible: Focus.awaitingChoice
                    primary: true
                    tint: Focus.inBreak ? Theme.teal : Theme.orange
                    label: Focus.inBreak ? "Start break" : "Start next session"
                    onClicked: Focus.startBreak()
                }
                PillButton {
                    objectName: "focusKeepWorking"
                    visible: Focus.awaitingChoice
                    label: "Keep working"
                    onClicked: Focus.keepWorking()
                }
            }
        }
    }

    // Today's completed blocks.
    Column {
        id: todayColumn
        anchors { left: timerColumn.right; top: parent.top; leftMargin: 16 }
        width: 150
        spacing: 6
        Text { text: "Today"; color: Theme.secondaryLabel; font.pixelSize: 11; font.weight: Font.DemiBold }
        Text {
            text: Focus.sessionsToday + (Focus.sessionsToday === 1 ? " block" : " blocks")
            color: Theme.label
            font.pixelSize: 20
            font.weight: Font.Bold
        }
        Flow {
            width: parent.width
            spacing: 4
            Repeater {
                model: Focus.todayBlocks
                delegate: Rectangle {
                    required property string modelData
                    width: stamp.implicitWidth + 12
                    height: 20
                    radius: 10
                    color: Theme.surfaceStrong
                    Text { id: stamp; anchors.centerIn: parent; text: parent.modelData; color: Theme.label; font.pixelSize: 11 }
                }
            }
        }
    }

    // Quick timers, a custom one, and the stopwatch.
    Column {
        anchors { left: todayColumn.right; right: parent.right; top: parent.top; leftMargin: 16; rightMargin: 8 }
        spacing: 8

        Text { text: "Quick timer"; color: Theme.secondaryLabel; font.pixelSize: 11; font.weight: Font.DemiBold }
        Row {
            spacing: 4
            Repeater {
                model: [1, 3, 5, 10, 15]
                delegate: PillButton {
                    required property int modelData
                    label: modelData + "m"
                    width: 40
                    height: 24
                    onClicked: Focus.startQuick(modelData)
                }
            }
            Rectangle {
                width: 44
                height: 24
                radius: 12
                color: Theme.surfaceStrong
                TextInput {
                    id: customMinutes
                    anchors.fill: parent
                    horizontalAlignment: TextInput.AlignHCenter
                    verticalAlignment: TextInput.AlignVCenter
                    text: Focus.customMinutes
                    color: Theme.label
                    font.pixelSize: 12
                    validator: IntValidator { bottom: 1; top: 600 }
                    Keys.onReturnPressed: Focus.startCustom(parseInt(text))
                }
            }
            PillButton { label: "Custom"; height: 24; onClicked: Focus.startCustom(parseInt(customMinutes.text)) }
        }
        Row {
            visible: Focus.quickStatus !== "idle"
            spacing: 8
            Text {
                text: Focus.quickLabel + "  " + Focus.quickTime
                color: Focus.quickStatus === "paused" ? Theme.secondaryLabel : Theme.label
                font.pixelSize: 14
                font.weight: Font.DemiBold
                anchors.verticalCenter: parent.verticalCenter
            }
            PillButton { label: Focus.quickStatus === "paused" ? "Resume" : "Pause"; height: 22; onClicked: Focus.pauseResumeQuick() }
            PillButton { label: "Cancel"; height: 22; onClicked: Focus.cancelQuick() }
        }

        Text { text: "Stopwatch"; color: Theme.secondaryLabel; font.pixelSize: 11; font.weight: Font.DemiBold }
        Row {
            spacing: 8
            Text {
                text: Focus.stopwatchTime
                color: Theme.label
                font.pixelSize: 20
                font.weight: Font.Bold
                width: 96
                anchors.verticalCenter: parent.verticalCenter
            }
            PillButton {
                label: Focus.stopwatchRunning ? "Pause" : "Start"
                height: 24
                onClicked: Focus.startPauseStopwatch()
            }
            PillButton {
                label: Focus.stopwatchRunning ? "Lap" : "Reset"
                height: 24
                onClicked: Focus.lapOrResetStopwatch()
            }
        }
        ListView {
            width: parent.width
            height: Math.min(contentHeight, 54)
            clip: true
            model: Focus.laps
            delegate: Text {
                required property string modelData
                text: modelData
                color: Theme.secondaryLabel
                font.pixelSize: 11
            }
        }
    }
}
