import QtQuick
import QtQuick.Controls.Basic as C
import Vantrelle.Shell

// The open panel: a header with the tool's name and controls, then the tool itself.
Item {
    id: expanded
    property bool showRail: false

    // Header
    Item {
        id: header
        anchors { left: parent.left; right: parent.right; top: parent.top; leftMargin: 24; rightMargin: 20; topMargin: Shell.notchHeight + 8 }
        height: 40

        Row {
            anchors { left: parent.left; verticalCenter: parent.verticalCenter }
            spacing: 10
            ToolGlyph { glyph: Shell.tabIcon; tint: Shell.tabTint; size: 30; anchors.verticalCenter: parent.verticalCenter }
            Column {
                anchors.verticalCenter: parent.verticalCenter
                Text {
                    text: Shell.tabTitle
                    color: Theme.label
                    font.pixelSize: 17
                    font.weight: Font.Bold
                }
                Text {
                    visible: text !== ""
                    text: Shell.headerSubtitle
                    color: Theme.secondaryLabel
                    font.pixelSize: 11
                }
            }
        }

        Row {
            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            spacing: 8
            HeaderButton {
                visible: Shell.tab === "dashboard"
                glyph: Shell.glyph("slider.horizontal.3")
                help: "Arrange the Dashboard"
                onClicked: Shell.openSettings("dashboard")
            }
            HeaderButton { glyph: Shell.glyph("gearshape.fill"); help: "Settings"; onClicked: Shell.openSettings("") }
            // Where the desktop shows no tray icon, its menu's rows live here.
            HeaderButton {
                id: moreButton
                visible: !Shell.hasTray
                glyph: Shell.glyph("ellipsis")
                help: "More"
                onClicked: moreMenu.open()
                C.Menu {
                    id: moreMenu
                    y: moreButton.height + 6
                    C.MenuItem { text: "Settings…"; onTriggered: Shell.openSettings("") }
                    C.MenuItem { text: "Quit Vantrelle"; onTriggered: Shell.quit() }
                }
            }
            HeaderButton { glyph: Shell.glyph("arrow.down.right.and.arrow.up.left"); help: "Close"; onClicked: Shell.collapse() }
        }
    }

    // The tool. Tools that are not built yet say so, under their own name.
    Item {
        id: content
        anchors { left: parent.left; right: parent.right; top: header.bottom; bottom: rail.visible ? rail.top : parent.bottom
                  margins: 16 }
        Loader {
            id: toolLoader
            anchors.fill: parent
            source: Shell.toolView
            active: Shell.toolView !== ""
            opacity: tool.opacity
        }
        EmptyToolView {
            id: tool
            anchors.fill: parent
            visible: !toolLoader.active
            title: Shell.tabTitle
            blurb: Shell.tabBlurb
            glyph: Shell.tabIcon
            tint: Shell.tabTint
            property string shownTab: Shell.tab
            onShownTabChanged: switchAnimation.restart()
            NumberAnimation { id: switchAnimation; target: tool; property: "opacity"; from: 0; to: 1
                              duration: Theme.contentDuration; easing.type: Easing.OutCubic }
        }
    }

    ToolRail {
        id: rail
        visible: expanded.showRail
        anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom }
    }
}
