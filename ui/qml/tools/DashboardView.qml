import QtQuick
import Vantrelle.Shell

// Everything at a glance: the user's eight tiles, two rows of four. A tile whose tool is built shows
// live figures; the others say what they will hold. A click opens the tile's tool.
Item {
    id: dashboard
    property bool shownNow: Shell.expanded
    onShownNowChanged: AIUsage.setShown(shownNow && hasUsageTile)
    Component.onCompleted: AIUsage.setShown(shownNow && hasUsageTile)
    Component.onDestruction: AIUsage.setShown(false)
    readonly property bool hasUsageTile: Shell.dashboardShowsUsage

    Grid {
        id: grid
        anchors.fill: parent
        anchors.margins: 4
        columns: 4
        spacing: 10
        Repeater {
            model: Shell.dashboardTiles
            DashboardTile {
                width: (grid.width - 3 * grid.spacing) / 4
                height: (grid.height - grid.spacing) / 2
            }
        }
    }
}
