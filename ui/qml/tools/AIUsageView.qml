import QtQuick
import Vantrelle.Shell

// Tokens and cost of today and the week, the current 5-hour window as a gauge, and the sessions of
// Claude Code, Codex and Gemini CLI with their last prompts.
Item {
    id: view
    property bool shownNow: Shell.expanded
    onShownNowChanged: AIUsage.setShown(shownNow)
    Component.onCompleted: AIUsage.setShown(shownNow)
    Component.onDestruction: AIUsage.setShown(false)

    // Controls: refresh and the Claude Code hook.
    Row {
        id: controls
        anchors { right: parent.right; top: parent.top; rightMargin: 8 }
        spacing: 10
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: AIUsage.scanning ? "Scanning…" : (AIUsage.lastScan !== "" ? "Updated " + AIUsage.lastScan : "")
            color: Theme.secondaryLabel
            font.pixelSize: 11
        }
        HeaderButton {
            anchors.verticalCenter: parent.verticalCenter
            glyph: Shell.glyph("arrow.clockwise")
            help: "Refresh"
            onClicked: AIUsage.refresh()
        }
        Row {
            spacing: 6
            anchors.verticalCenter: parent.verticalCenter
            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: "Claude Code alerts"
                color: Theme.label
                font.pixelSize: 12
            }
            Switch {
                checked: AIUsage.hooksInstalled
                onToggled: AIUsage.setHooksInstalled(!AIUsage.hooksInstalled)
            }
        }
    }
    Text {
        anchors { right: parent.right; top: controls.bottom; rightMargin: 8; topMargin: 2 }
        visible: text !== ""
        width: Math.min(implicitWidth, parent.width * 0.6)
        wrapMode: Text.WordWrap
        horizontalAlignment: Text.AlignRight
        text: AIUsage.hookError
        color: Theme.negative
        font.pixelSize: 11
    }

    Row {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; top: controls.bottom
                  topMargin: 12; leftMargin: 8; rightMargin: 8 }
        spacing: 14

        // Today and the week.
        Column {
            id: todayColumn
            width: 210
            spacing: 4
            Text { text: "Today"; color: Theme.secondaryLabel; font.pixelSize: 11 }
            Row {
                spacing: 8
                Text { text: AIUsage.today.tokens; color: Theme.label; font.pixelSize: 26; font.weight: Font.Bold }
                Text { text: AIUsage.today.cost; color: Theme.positive; font.pixelSize: 16
                       anchors.baseline: parent.children[0].baseline }
            }
            Text {
                text: AIUsage.today.input + " in · " + AIUsage.today.output + " out · " + AIUsage.today.cacheRead + " cached"
                color: Theme.secondaryLabel
                font.pixelSize: 11
            }
            Text {
                text: AIUsage.today.sessions + " sessions · " + AIUsage.today.messages + " messages"
                color: Theme.secondaryLabel
                font.pixelSize: 11
            }
            Item { width: 1; height: 8 }
            Row {
                spacing: 6
                height: 86
                Repeater {
                    model: AIUsage.days
                    Column {
                        id: day
                        required property string label
                        required property string tokens
                        required property string cost
                        required property real fraction
                        required property bool isToday
                        spacing: 3
                        anchors.bottom: parent.bottom
                        Rectangle {
                            width: 24
                            height: Math.max(3, 62 * day.fraction)
                            radius: 4
                            color: day.isToday ? Theme.purple : Qt.rgba(0.75, 0.35, 0.95, 0.45)
                            MouseArea { id: barHover; anchors.fill: parent; hoverEnabled: true }
                            Rectangle {
                                visible: barHover.containsMouse
                                anchors { bottom: parent.top; horizontalCenter: parent.horizontalCenter; bottomMargin: 4 }
                                width: tip.implicitWidth + 10; height: tip.implicitHeight + 6; radius: 5
                                color: Theme.surfaceStrong
                                Text { id: tip; anchors.centerIn: parent; text: day.tokens + " · " + day.cost
                                       color: Theme.label; font.pixelSize: 10 }
                            }
                        }
                        Text { text: day.label; color: Theme.secondaryLabel; font.pixelSize: 10
                               anchors.horizontalCenter: parent.horizontalCenter }
                    }
                }
            }
        }

        // The 5-hour window.
        Item {
            width: 170
            height: parent.height
            Gauge {
                id: gauge
                anchors.horizontalCenter: parent.horizontalCenter
                progress: AIUsage.block.progress
                tint: AIUsage.block.overBudget ? Theme.orange : Theme.purple
                label: AIUsage.block.open ? AIUsage.block.tokens : "–"
                caption: AIUsage.block.open ? "5-hour window" : "No window open"
            }
            Column {
                anchors { top: gauge.bottom; topMargin: 6; horizontalCenter: parent.horizontalCenter }
                visible: AIUsage.block.open
                spacing: 2
                Text { text: AIUsage.block.burn + " · " + AIUsage.block.cost; color: Theme.label; font.pixelSize: 11
                       anchors.horizontalCenter: parent.horizontalCenter }
                Text { text: "→ " + AIUsage.block.projected + (AIUsage.block.budget ? " of " + AIUsage.block.budget : "")
                       color: AIUsage.block.overBudget ? Theme.orange : Theme.secondaryLabel; font.pixelSize: 11
                       anchors.horizontalCenter: parent.horizontalCenter }
                Text { text: AIUsage.block.timeLeft + " left · since " + AIUsage.block.started
                       color: Theme.secondaryLabel; font.pixelSize: 11; anchors.horizontalCenter: parent.horizontalCenter }
            }
        }

        // Sessions.
        ListView {
            id: sessions
            width: parent.width - todayColumn.width - 170 - 28
            height: parent.height
            clip: true
            spacing: 4
            model: AIUsage.sessions
            delegate: Rectangle {
                id: session
                required property string sessionState
                required property string tool
                required property string project
                required property string title
                required property string branch
                required property string modelFamily
                required property string tokens
                required property string cost
                required property string active
                required property string lastPrompt
                width: sessions.width
                height: promptText.visible ? 52 : 36
                radius: 10
                color: Theme.surface
                Rectangle {
                    id: stateDot
                    anchors { left: parent.left; leftMargin: 10; top: parent.top; topMargin: 14 }
                    width: 8; height: 8; radius: 4
                    color: session.sessionState === "running" ? Theme.positive
                         : session.sessionState === "waiting" ? Theme.orange : Theme.secondaryLabel
                }
                Column {
                    anchors { left: stateDot.right; leftMargin: 8; right: figures.left; rightMargin: 8; top: parent.top; topMargin: 6 }
                    Text {
                        width: parent.width
                        elide: Text.ElideRight
                        text: session.project + (session.branch ? "  ⎇ " + session.branch : "") + "  ·  " + session.title
                        color: Theme.label
                        font.pixelSize: 12
                    }
                    Text {
                        id: promptText
                        visible: session.lastPrompt !== ""
                        width: parent.width
                        elide: Text.ElideRight
                        text: "“" + session.lastPrompt + "”"
                        color: Theme.secondaryLabel
                        font.pixelSize: 11
                    }
                }
                Column {
                    id: figures
                    anchors { right: parent.right; rightMargin: 10; top: parent.top; topMargin: 6 }
                    Text { anchors.right: parent.right; text: session.tokens + " · " + session.cost
                           color: Theme.label; font.pixelSize: 12 }
                    Text { anchors.right: parent.right; text: session.tool + " · " + session.modelFamily + " · " + session.active
                           color: Theme.secondaryLabel; font.pixelSize: 10 }
                }
            }
            Text {
                anchors.centerIn: parent
                width: parent.width - 20
                visible: sessions.count === 0
                wrapMode: Text.WordWrap
                horizontalAlignment: Text.AlignHCenter
                text: "No agent sessions in the last days. Sessions of Claude Code, Codex and Gemini CLI show up here as they write their logs."
                color: Theme.secondaryLabel
                font.pixelSize: 12
            }
        }
    }
}
