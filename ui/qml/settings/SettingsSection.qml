import QtQuick
import Vantrelle.Shell

// A heading over a group of rows.
Text {
    color: Theme.secondaryLabel
    font.pixelSize: 11
    font.weight: Font.DemiBold
    font.capitalization: Font.AllUppercase
    topPadding: 10
    bottomPadding: 2
}
