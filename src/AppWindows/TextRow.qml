import QtQuick
import QtQuick.Controls

// A setting that is a line of text, stored as it is typed.
SettingRow {
    id: row
    namesControl: true
    property string text
    signal edited(string text)

    TextField {
        objectName: row.objectName + "Field"
        width: 200
        text: row.text
        selectByMouse: true
        Accessible.name: row.label
        Accessible.description: row.caption
        onTextEdited: row.edited(text)
        onEditingFinished: text = Qt.binding(() => row.text)
    }
}
