import QtQuick
import Vantrelle.Shell

// The content of the notch panel: one shape that grows from the notch into the open panel, and the
// dock below it.
Item {
    id: root
    focus: true
    Keys.onEscapePressed: (event) => { Shell.escapePressed(); event.accepted = true }
    Shortcut { sequence: "Ctrl+,"; onActivated: Shell.openSettings("") }

    readonly property bool expanded: Shell.expanded
    // A real notch with nothing to show stands alone; a simulated one is always drawn.
    readonly property bool shellVisible: expanded || Shell.hasActivity || Shell.simulated
    readonly property real collapsedWidth: Shell.collapsedWidth

    NotchShell {
        id: shell
        // On whole pixels, like the window shape cut around it (a half-pixel edge draws as a grey step),
        // and centred where the drop zone's window sits, so their edges meet on the same pixel.
        x: Math.round((Shell.notchCenterX >= 0 ? Shell.notchCenterX : root.width / 2) - width / 2)
        y: 0
        visible: root.shellVisible
        width: root.expanded ? Shell.panelWidth : root.collapsedWidth
        height: root.expanded ? Shell.panelHeight : Shell.notchHeight
        cornerRadius: Shell.cornerRadius
        elevated: root.expanded
        glass: Shell.glass
        light: Shell.lightAppearance
        outlined: Shell.outlined && !root.expanded

        Behavior on width { NumberAnimation { duration: Theme.morphDuration; easing.type: Easing.OutBack
                                              easing.overshoot: Theme.morphOvershoot } }
        Behavior on height { NumberAnimation { duration: Theme.morphDuration; easing.type: Easing.OutBack
                                               easing.overshoot: Theme.morphOvershoot } }

        CollapsedView {
            anchors.fill: parent
            opacity: root.expanded ? 0 : 1
            visible: opacity > 0
            Behavior on opacity { NumberAnimation { duration: 150 } }
        }
        // Laid out at the open size from the first frame and uncovered by the growing shell, so no
        // text reflows or overlaps while the panel opens.
        ExpandedView {
            anchors { top: parent.top; horizontalCenter: parent.horizontalCenter }
            width: Shell.panelWidth
            height: Shell.panelHeight
            showRail: !Shell.showDock
            opacity: root.expanded ? 1 : 0
            visible: opacity > 0
            Behavior on opacity { NumberAnimation { duration: 180 } }
        }
    }

    DockPill {
        id: dock
        visible: root.expanded && Shell.showDock
        x: Math.round((root.width - width) / 2)
        y: Shell.panelHeight + Shell.dockGap
    }

    function reportShape() {
        var s = shell.visible ? Qt.rect(shell.x, shell.y, shell.width, shell.height) : Qt.rect(0, 0, 0, 0)
        var d = dock.visible ? Qt.rect(dock.x, dock.y, dock.width, dock.height) : Qt.rect(0, 0, 0, 0)
        Shell.reportShape(s, shell.cornerRadius, d)
    }
    Connections {
        target: shell
        function onXChanged() { root.reportShape() }
        function onWidthChanged() { root.reportShape() }
        function onHeightChanged() { root.reportShape() }
        function onVisibleChanged() { root.reportShape() }
        function onCornerRadiusChanged() { root.reportShape() }
    }
    Connections {
        target: dock
        function onVisibleChanged() { root.reportShape() }
        function onWidthChanged() { root.reportShape() }
        function onXChanged() { root.reportShape() }
    }
    Component.onCompleted: reportShape()
}
