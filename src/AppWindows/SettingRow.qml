import QtQuick
import QtQuick.Layouts
import Pictray.Kit

// One setting: its label and optional caption on the left, its control on
// the right.
RowLayout {
    id: row
    property alias label: labelText.text
    property alias caption: captionText.text
    default property alias control: controlSlot.data
    Layout.fillWidth: true
    spacing: 12

    ColumnLayout {
        Layout.fillWidth: true
        Layout.alignment: Qt.AlignVCenter
        spacing: 2
        // One line: a wrapping label is laid out before the window has its
        // width and keeps that first, taller height.
        Text {
            id: labelText
            Layout.fillWidth: true
            elide: Text.ElideRight
            color: Theme.text
            font.pixelSize: Theme.fontSize
        }
        Text {
            id: captionText
            Layout.fillWidth: true
            visible: text.length > 0
            wrapMode: Text.WordWrap
            color: Theme.textSecondary
            font.pixelSize: Theme.smallFontSize
        }
    }
    Row {
        id: controlSlot
        Layout.alignment: Qt.AlignVCenter | Qt.AlignRight
    }
}
