import QtQuick
import QtMultimedia
import Vantrelle.Shell

// A camera check before a call: the live picture, mirrored like a mirror. The camera runs only while
// this view shows; closing the panel stops it.
Item {
    id: view
    readonly property bool hasCamera: devices.videoInputs.length > 0
    readonly property bool shownNow: visible && Shell.expanded

    onShownNowChanged: Mirror.wanted = shownNow && hasCamera
    Component.onCompleted: Mirror.wanted = shownNow && hasCamera
    Component.onDestruction: { Mirror.wanted = false; Mirror.setSessionRunning(false) }

    MediaDevices { id: devices }

    CaptureSession {
        camera: Camera {
            id: camera
            cameraDevice: devices.defaultVideoInput
            active: Mirror.wanted && view.hasCamera
            onActiveChanged: Mirror.setSessionRunning(active)
        }
        videoOutput: output
    }

    Rectangle {
        anchors.fill: parent
        radius: 16
        color: Theme.surface
        clip: true
        VideoOutput {
            id: output
            anchors.fill: parent
            visible: view.hasCamera
            fillMode: VideoOutput.PreserveAspectCrop
            transform: Scale { origin.x: output.width / 2; xScale: -1 }
        }
        Column {
            anchors.centerIn: parent
            visible: !view.hasCamera
            spacing: 8
            Icon { anchors.horizontalCenter: parent.horizontalCenter; glyph: Shell.glyph("video.slash"); size: 40
                   color: Theme.secondaryLabel }
            Text {
                anchors.horizontalCenter: parent.horizontalCenter
                text: "No camera"
                color: Theme.label
                font.pixelSize: 17
                font.weight: Font.DemiBold
            }
            Text {
                anchors.horizontalCenter: parent.horizontalCenter
                text: "Plug one in and it shows up here."
                color: Theme.secondaryLabel
                font.pixelSize: 12
            }
        }
    }
}
