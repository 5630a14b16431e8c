import QtQuick
import Vantrelle.Shell

// The live activity beside the notch: the leading cell left of the camera, the trailing one right.
// Only a change of kind plays the transition; updates within a kind just change the text.
Item {
    id: collapsed
    property real inset: Shell.activityWing

    Item {
        id: row
        anchors.fill: parent
        visible: Shell.hasActivity
        property string kind: Shell.activityKind
        onKindChanged: appear.restart()

        ParallelAnimation {
            id: appear
            NumberAnimation { target: row; property: "opacity"; from: 0; to: 1; duration: 220 }
            NumberAnimation { target: row; property: "scale"; from: 0.96; to: 1; duration: Theme.bouncyDuration
                              easing.type: Easing.OutBack; easing.overshoot: Theme.bouncyOvershoot }
        }

        // Leading cell, centred in the wing left of the notch.
        Item {
            id: leading
            width: collapsed.inset
            anchors { left: parent.left; top: parent.top; bottom: parent.bottom }
            opacity: Shell.dimmed ? 0.5 : 1
            Icon {
                anchors.centerIn: parent
                visible: !Shell.leadingIsAgentMark && Shell.leadingIcon !== ""
                glyph: Shell.leadingIcon
                size: 14
            }
            AgentMark {
                anchors.centerIn: parent
                visible: Shell.leadingIsAgentMark
                pulse: Shell.pulse
                size: 14
            }
            Rectangle {
                anchors.centerIn: parent
                visible: Shell.leadingIsArtwork
                width: 16; height: 16; radius: 4
                color: Theme.surfaceStrong
                clip: true
                Icon { anchors.centerIn: parent; visible: Media.artworkUrl === ""; glyph: Shell.glyph("music.note"); size: 10 }
                Image {
                    anchors.fill: parent
                    visible: Media.artworkUrl !== ""
                    source: Shell.leadingIsArtwork ? Media.artworkUrl : ""
                    sourceSize: Qt.size(32, 32)
                    fillMode: Image.PreserveAspectCrop
                }
            }
        }

        // Trailing cell, right of the notch.
        Item {
            id: trailing
            width: collapsed.inset
            anchors { right: parent.right; top: parent.top; bottom: parent.bottom }
            opacity: Shell.dimmed ? 0.5 : 1
            Row {
                anchors.centerIn: parent
                spacing: 4
                ProgressRing {
                    visible: Shell.ring >= 0
                    progress: Shell.ring
                    anchors.verticalCenter: parent.verticalCenter
                }
                Icon {
                    visible: Shell.trailingIcon !== ""
                    glyph: Shell.trailingIcon
                    size: 14
                    color: Theme.positive
                }
                Text {
                    id: trailingText
                    visible: text !== ""
                    text: Shell.trailingText
                    color: Shell.activityKind === "agentAlert" ? Theme.orange : Theme.label
                    font.pixelSize: 12
                    font.weight: Font.DemiBold
                    anchors.verticalCenter: parent.verticalCenter
                }
                AudioBars {
                    visible: Shell.audioBars
                    height: 12
                    anchors.verticalCenter: parent.verticalCenter
                }
            }
        }
    }
}
