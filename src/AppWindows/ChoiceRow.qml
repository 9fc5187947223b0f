import QtQuick
import QtQuick.Controls

// A setting that is one of a list.
SettingRow {
    id: row
    namesControl: true
    property var choices: []
    property int currentIndex
    property int controlWidth: 220
    signal activated(int index)

    ComboBox {
        objectName: row.objectName + "Choice"
        width: row.controlWidth
        model: row.choices
        currentIndex: row.currentIndex
        Accessible.name: row.label
        Accessible.description: row.caption
        onActivated: index => {
            row.activated(index);
            currentIndex = Qt.binding(() => row.currentIndex);
        }
    }
}
