import QtQuick
import QtQuick.Layouts
import Pictray.Kit

// One setting: its label and optional caption on the left, its control on
// the right. A control named after the row sets namesControl, so that a
// screen reader hears the label once, as the control's name.
RowLayout {
    id: row
    property alias label: labelText.text
    property alias caption: captionText.text
    property bool namesControl: false
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
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Accessible.ignored: row.namesControl
        }
        Text {
            id: captionText
            Layout.fillWidth: true
            visible: text.length > 0
            wrapMode: Text.WordWrap
            color: Theme.textSecondary
            font.pixelSize: Theme.smallFontSize
            Accessible.role: Accessible.StaticText
            Accessible.name: text
            Accessible.ignored: row.namesControl || !visible
        }
    }
    Row {
        id: controlSlot
        Layout.alignment: Qt.AlignVCenter | Qt.AlignRight
    }
}
