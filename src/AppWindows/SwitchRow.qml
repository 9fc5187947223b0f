import QtQuick
import Pictray.Kit

// A setting that is on or off.
SettingRow {
    id: row
    namesControl: true
    property bool checked
    signal toggled(bool checked)

    AccessibleSwitch {
        objectName: row.objectName + "Switch"
        checked: row.checked
        Accessible.name: row.label
        Accessible.description: row.caption
        onToggled: {
            row.toggled(checked);
            // A click broke the binding: follow the setting again, which
            // also shows a refused change springing back.
            checked = Qt.binding(() => row.checked);
        }
    }
}
