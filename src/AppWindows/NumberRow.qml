import QtQuick
import QtQuick.Controls

// A setting that is a whole number within a range.
SettingRow {
    id: row
    namesControl: true
    property int value
    property int from
    property int to
    property int stepSize: 1
    property string accessibleName: label
    signal modified(int value)

    SpinBox {
        objectName: row.objectName + "Spin"
        width: 120
        from: row.from
        to: row.to
        stepSize: row.stepSize
        value: row.value
        editable: true
        Accessible.name: row.accessibleName
        Accessible.description: row.caption
        onValueModified: {
            row.modified(value);
            value = Qt.binding(() => row.value);
        }
    }
}
