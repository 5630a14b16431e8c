import QtQuick
import Vantrelle.Shell

// Type maths, units or currencies; the answer appears as you type, Return keeps the line.
Item {
    id: view
    Component.onCompleted: field.forceActiveFocus()

    Rectangle {
        id: inputBox
        anchors { left: parent.left; right: parent.right; top: parent.top; leftMargin: 8; rightMargin: 8 }
        height: 64
        radius: 14
        color: Theme.surface
        border.color: field.activeFocus ? Qt.rgba(1, 1, 1, 0.18) : "transparent"

        TextInput {
            id: field
            anchors { left: parent.left; right: answerColumn.left; verticalCenter: parent.verticalCenter
                      leftMargin: 16; rightMargin: 12 }
            text: Calc.input
            onTextEdited: Calc.input = text
            color: Theme.label
            font.pixelSize: 20
            clip: true
            selectByMouse: true
            Keys.onReturnPressed: Calc.commit()
            Keys.onEnterPressed: Calc.commit()
            // Escape is not taken here: it reaches the panel, which closes.
            Text {
                visible: field.text.length === 0
                text: Calc.previousAnswer !== "" ? "Try ans * 2, 20% of 150, 5 km in mi" : "Try 24*7, 20% of 150, 5 km in mi, 10 usd in eur"
                color: Theme.secondaryLabel
                font.pixelSize: 16
                anchors.verticalCenter: parent.verticalCenter
            }
        }
        Column {
            id: answerColumn
            anchors { right: parent.right; verticalCenter: parent.verticalCenter; rightMargin: 16 }
            width: Math.min(implicitWidth, inputBox.width * 0.5)
            Text {
                anchors.right: parent.right
                text: Calc.waiting ? "…" : Calc.answer
                color: Calc.isError ? Theme.secondaryLabel : Theme.label
                font.pixelSize: Calc.isError ? 13 : 22
                font.weight: Font.DemiBold
                elide: Text.ElideLeft
                MouseArea {
                    anchors.fill: parent
                    enabled: !Calc.isError && Calc.answer !== ""
                    cursorShape: Qt.PointingHandCursor
                    onClicked: Calc.copy(Calc.answer)
                }
            }
            Text {
                anchors.right: parent.right
                visible: text !== ""
                text: Calc.detail
                color: Theme.secondaryLabel
                font.pixelSize: 11
            }
        }
    }

    ListView {
        id: history
        anchors { left: parent.left; right: parent.right; top: inputBox.bottom; bottom: parent.bottom
                  topMargin: 10; leftMargin: 8; rightMargin: 8 }
        clip: true
        spacing: 2
        model: Calc.entries
        delegate: Rectangle {
            id: entry
            required property int entryIndex
            required property string expression
            required property string result
            required property string detail
            width: history.width
            height: 34
            radius: 8
            color: rowHover.containsMouse ? Qt.rgba(1, 1, 1, 0.06) : "transparent"
            Text {
                anchors { left: parent.left; leftMargin: 12; verticalCenter: parent.verticalCenter }
                width: parent.width * 0.55
                text: entry.expression
                color: Theme.secondaryLabel
                font.pixelSize: 14
                elide: Text.ElideRight
            }
            Row {
                anchors { right: parent.right; rightMargin: 12; verticalCenter: parent.verticalCenter }
                spacing: 8
                Text { text: entry.detail; color: Theme.secondaryLabel; font.pixelSize: 11
                       anchors.verticalCenter: parent.verticalCenter; visible: text !== "" }
                Text { text: entry.result; color: Theme.label; font.pixelSize: 15; font.weight: Font.DemiBold }
            }
            MouseArea {
                id: rowHover
                anchors.fill: parent
                hoverEnabled: true
                cursorShape: Qt.PointingHandCursor
                // A click copies the answer; a double click brings the line back to edit.
                onClicked: Calc.copy(entry.result)
                onDoubleClicked: { Calc.recall(entry.entryIndex); field.forceActiveFocus() }
            }
        }
        Text {
            anchors.centerIn: parent
            visible: history.count === 0
            text: "Return keeps a line here; click a result to copy it."
            color: Theme.secondaryLabel
            font.pixelSize: 12
        }
    }
}
