import QtQuick
import QtQuick.Controls

// A setting that is one of a list.
SettingRow {
    id: row
    namesControl: true
    property var choices: []
    property int currentIndex
    property int controlWidth: 240
    signal activated(int index)

    ComboBox {
        id: combo
        objectName: row.objectName + "Choice"
        // Wide enough for its longest choice, so none is cut.
        width: Math.max(row.controlWidth, Math.ceil(row.choices.reduce(
            (widest, choice) => Math.max(widest, metrics.advanceWidth(choice)), 0))
            + leftPadding + rightPadding + (indicator ? indicator.width : 0))
        FontMetrics {
            id: metrics
            font: combo.font
        }
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
