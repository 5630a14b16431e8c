import QtQuick
import QtQuick.Controls.Basic as C
import Vantrelle.Shell

// A whole number with a unit, typed or stepped; `edited` carries the new value.
C.SpinBox {
    id: box
    property string unit
    signal edited(int newValue)
    editable: true
    width: 130
    textFromValue: (v) => box.unit === "" ? String(v) : v + " " + box.unit
    valueFromText: (t) => parseInt(t)
    onValueModified: box.edited(value)
}
