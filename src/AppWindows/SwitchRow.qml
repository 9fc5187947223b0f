import QtQuick
import QtQuick.Controls

// A setting that is on or off.
SettingRow {
    id: row
    property bool checked
    signal toggled(bool checked)

    Switch {
        objectName: row.objectName + "Switch"
        checked: row.checked
        Accessible.name: row.label
        onToggled: {
            row.toggled(checked);
            // A click broke the binding: follow the setting again, which
            // also shows a refused change springing back.
            checked = Qt.binding(() => row.checked);
        }
    }
}
